#pragma once

namespace Orlix::Data::Velmo9 {

/// What opening a document found.
struct FileIOAttributes {
  bool opened{};               ///< the file was opened
  bool gradesNeedMigration{};  ///< its material grades have to be converted
};

}  // namespace Orlix::Data::Velmo9
