// The library's version, as built.
#pragma once

namespace WZ {

const char* GetLibraryVersion() noexcept;

}  // namespace WZ
