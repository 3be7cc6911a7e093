#pragma once

namespace Orlix::Legacy::Messages {

// What a reading fails with.
inline constexpr const wchar_t* kNotOpened = L"The specified file could not be opened";
inline constexpr const wchar_t* kDosFile =
    L"This is a DOS file and cannot be read by this version of Velmo";
inline constexpr const wchar_t* kModules = L"The following module(s) could not be read:";

}  // namespace Orlix::Legacy::Messages
