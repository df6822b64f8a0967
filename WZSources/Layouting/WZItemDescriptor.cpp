#define NK_SOURCE_PATH "WZSources\\Layouting\\WZItemDescriptor"
#include "WZSources/Layouting/WZItemDescriptor.hpp"

#include "NK/NKAssert.hpp"
#include "WZSources/ColumnModel/WZPixels.hpp"

#include <algorithm>

namespace WZ::Layouting {

namespace {

short Sum(short a, short b)
{
    return Pixels::Add(a, b);
}

short Offset(NK::Int32 alignment, NK::Int32 centerCode, NK::Int32 endCode, short available, short size)
{
    const int room = static_cast<int>(available) - std::max<short>(0, size);
    if (alignment == centerCode)
        return Pixels::Saturated(room / 2);
    if (alignment == endCode)
        return Pixels::Saturated(room);
    return 0;
}

// What is left of the room after the two sides of an inset; never negative.
short Filled(short available, short before, short after)
{
    return Pixels::Saturated(std::max(0, static_cast<int>(available) - before - after));
}

template <typename... Fns>
struct Overloaded : Fns... {
    using Fns::operator()...;
};
template <typename... Fns>
Overloaded(Fns...) -> Overloaded<Fns...>;

}  // namespace

ItemDescriptorBase::ItemDescriptorBase(const Inset& inset)
{
    SetInset(inset);
}

ItemDescriptorBase::~ItemDescriptorBase() = default;

void ItemDescriptorBase::SetInset(const Inset& newInset)
{
    NK_PRECOND_TEXT(newInset.IsNonNegative(), "inset >= 0");
    inset = newInset.NonNegative();
}

void ReportUnusablePolicy(bool usable)
{
    NK_PRECOND_TEXT(usable, "policy sizes are lengths");
}

short HItemDescriptor::GetHeight(short available) const
{
    return std::visit(Overloaded {
                          [](std::monostate) -> short { return 0; },
                          [](const HFixedHeight& fixed) -> short { return std::max<short>(0, fixed.height); },
                          [&](const HAutoFillHeight&) -> short {
                              return Filled(available, GetInset().top, GetInset().bottom);
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
                          [](const VFixedWidth& fixed) -> short { return std::max<short>(0, fixed.width); },
                          [&](const VAutoFillWidth&) -> short {
                              return Filled(available, GetInset().left, GetInset().right);
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
