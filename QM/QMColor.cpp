#include "QM/QMColor.hpp"

#include <cstdio>

namespace QM {

std::string Color::ToString() const
{
    char buffer[8];
    std::snprintf(buffer, sizeof buffer, "#%02x%02x%02x", red, green, blue);
    return buffer;
}

}  // namespace QM
