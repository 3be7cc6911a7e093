#include "model/oxutil/uuid.h"

#include <array>
#include <random>

namespace Orlix {

std::string NewUuid() {
  std::random_device device;
  std::uniform_int_distribution<unsigned> byteOf(0, 255);
  std::array<unsigned, 16> bytes;
  for (unsigned& byte : bytes) byte = byteOf(device);
  bytes[6] = 0x40 | (bytes[6] & 0x0F);  // version 4
  bytes[8] = 0x80 | (bytes[8] & 0x3F);  // variant of RFC 4122

  constexpr char kHex[] = "0123456789abcdef";
  std::string text;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (i == 4 || i == 6 || i == 8 || i == 10) text += '-';
    text += kHex[bytes[i] >> 4];
    text += kHex[bytes[i] & 0xF];
  }
  return text;
}

}  // namespace Orlix
