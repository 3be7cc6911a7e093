#include "legacy/LegacyFileReader.h"

namespace Orlix {

bool LegacyFileReader::Read(const std::wstring& /*path*/, Data::CVelmoData& /*target*/,
                            std::wstring& error) {
  error = L"The specified file could not be opened";
  return false;
}

}  // namespace Orlix
