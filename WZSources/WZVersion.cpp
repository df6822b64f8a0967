#include "WZSources/WZVersion.hpp"

namespace WZ {

const char* GetLibraryVersion() noexcept
{
    return "0.1.0";
}

}  // namespace WZ
