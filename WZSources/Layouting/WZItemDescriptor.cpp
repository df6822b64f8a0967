#include "WZSources/Layouting/WZItemDescriptor.hpp"

namespace WZ::Layouting {

namespace {

short Sum(short a, short b)
{
    return static_cast<short>(a + b);
}

short Offset(NK::Int32 alignment, NK::Int32 centerCode, NK::Int32 endCode, short available, short size)
{
    if (alignment == centerCode)
        return static_cast<short>((available - size) / 2);
    if (alignment == endCode)
        return static_cast<short>(available - size);
    return 0;
}

template <typename... Fns>
struct Overloaded : Fns... {
    using Fns::operator()...;
};
template <typename... Fns>
Overloaded(Fns...) -> Overloaded<Fns...>;

}  // namespace

ItemDescriptorBase::~ItemDescriptorBase() = default;

short HItemDescriptor::GetHeight(short available) const
{
    return std::visit(Overloaded {
                          [](std::monostate) -> short { return 0; },
                          [](const HFixedHeight& fixed) -> short { return fixed.height; },
                          [&](const HAutoFillHeight&) -> short {
                              return static_cast<short>(available - GetInset().top - GetInset().bottom);
                          },
                      },
                      GetCrossPolicy());
}

short HItemDescriptor::GetY(short available) const
{
    return std::visit(Overloaded {
                          [](std::monostate) -> short { return 0; },
                          [&](const HFixedHeight& fixed) -> short {
                              return Offset(static_cast<NK::Int32>(fixed.alignment),
                                            static_cast<NK::Int32>(VerticalAlignment::Center),
                                            static_cast<NK::Int32>(VerticalAlignment::Bottom), available, fixed.height);
                          },
                          [&](const HAutoFillHeight&) -> short { return GetInset().top; },
                      },
                      GetCrossPolicy());
}

short HItemDescriptor::GetOwnInsetsForWidth() const
{
    return Sum(GetInset().left, GetInset().right);
}

short HItemDescriptor::GetOwnInsetsForHeight() const
{
    return Sum(GetInset().top, GetInset().bottom);
}

short VItemDescriptor::GetWidth(short available) const
{
    return std::visit(Overloaded {
                          [](std::monostate) -> short { return 0; },
                          [](const VFixedWidth& fixed) -> short { return fixed.width; },
                          [&](const VAutoFillWidth&) -> short {
                              return static_cast<short>(available - GetInset().left - GetInset().right);
                          },
                      },
                      GetCrossPolicy());
}

short VItemDescriptor::GetX(short available) const
{
    return std::visit(Overloaded {
                          [](std::monostate) -> short { return 0; },
                          [&](const VFixedWidth& fixed) -> short {
                              return Offset(static_cast<NK::Int32>(fixed.alignment),
                                            static_cast<NK::Int32>(HorizontalAlignment::Center),
                                            static_cast<NK::Int32>(HorizontalAlignment::Right), available, fixed.width);
                          },
                          [&](const VAutoFillWidth&) -> short { return GetInset().left; },
                      },
                      GetCrossPolicy());
}

short VItemDescriptor::GetOwnInsetsForWidth() const
{
    return Sum(GetInset().left, GetInset().right);
}

short VItemDescriptor::GetOwnInsetsForHeight() const
{
    return Sum(GetInset().top, GetInset().bottom);
}

}  // namespace WZ::Layouting
