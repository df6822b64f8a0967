#include "QM/QMFont.hpp"

namespace QM {

std::string Font::ToString(Style style)
{
    std::string text;
    auto add = [&](Style flag, const char* name) {
        if (!Has(style, flag))
            return;
        if (!text.empty())
            text += "+";
        text += name;
    };
    add(Bold, "bold");
    add(Italic, "italic");
    add(Underline, "underline");
    return text.empty() ? "plain" : text;
}

}  // namespace QM
