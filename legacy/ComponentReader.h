#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "legacy/Context.h"
#include "legacy/RecordReader.h"
#include "model/oxdata/section/CSecComp.h"

namespace Orlix::Legacy {

/// Reads components: the record COMPONENT and those behind it, in any order, up to `Finish`.
class ComponentReader {
 public:
  ComponentReader(RecordReader& record, Context& context) : record_(record), context_(context) {}

  /// COMPONENT "shaft" CONCRETE "C35/45"
  void Begin();
  /// A record behind it. @return false for one that is none of a component's.
  bool Read();
  bool IsOpen() const { return isOpen_; }
  /// The component, whole; the reader waits for the next one.
  Data::CSecComp Finish();

 private:
  void SetGrade(MatType type, const std::string& name);
  void ReadShape();
  void ReadRing(bool isHole);
  void ReadVertex();
  void ReadLinks();

  RecordReader& record_;
  Context& context_;
  std::size_t carriedPoints_{};  // of all components up to now
  std::size_t numRings_{};       // the same
  bool isOpen_{};
  Data::CSecComp component_;
  std::vector<Data::SectionPolygon> polygons_;
  bool isHole_{};  // the vertices to come are those of a hole
  Data::Reinforcement reinforcement_;
};

}  // namespace Orlix::Legacy
