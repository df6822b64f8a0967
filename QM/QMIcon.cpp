#include "QM/QMIcon.hpp"

namespace QM {

std::string Icon::ToString() const
{
    if (IsEmpty())
        return {};
    return "icon(" + std::to_string(module) + ":" + std::to_string(id) + ")";
}

}  // namespace QM
