#define NK_SOURCE_PATH "WZSources\\Layouting\\WZLayoutBase"
#include "WZSources/Layouting/WZLayoutBase.hpp"

#include "NK/NKAssert.hpp"
#include "QM/QMDialog.hpp"

#include <algorithm>

namespace WZ::Layouting {

namespace {

// Closes the dialog's bracket also when a client's ApplyRect throws.
class MoveResizeBracket {
public:
    explicit MoveResizeBracket(QM::Dialog& dialog) : dialog(dialog) { dialog.BeginMoveResizeItems(); }
    ~MoveResizeBracket() { dialog.EndMoveResizeItems(); }
    MoveResizeBracket(const MoveResizeBracket&) = delete;
    MoveResizeBracket& operator=(const MoveResizeBracket&) = delete;

private:
    QM::Dialog& dialog;
};

}  // namespace

LayoutBase::Delegate::~Delegate() = default;

LayoutBase::~LayoutBase() = default;

void LayoutBase::ApplyLayout(QM::Dialog& dialog, const QM::Rect& rect) const
{
    MoveResizeBracket bracket(dialog);
    ApplyLayout(rect);
}

void LayoutBase::SetGap(short newGap)
{
    NK_PRECOND_TEXT(newGap >= 0, "gap >= 0");
    gap = std::max<short>(0, newGap);
}

void LayoutBase::SetMargin(const Inset& newMargin)
{
    NK_PRECOND_TEXT(newMargin.IsNonNegative(), "margin >= 0");
    margin = newMargin.NonNegative();
}

bool LayoutBase::ContainsVisible() const
{
    for (const auto& descriptor : itemDescriptors)
        if (!descriptor->IsSpacing() && descriptor->IsVisible())
            return true;
    return false;
}

ManagedQMItems LayoutBase::GetManagedQMItems() const
{
    ManagedQMItems all;
    for (const auto& descriptor : itemDescriptors)
        for (QM::Item* item : descriptor->GetManagedQMItems())
            all.Add(item);
    return all;
}

void LayoutBase::HideAll()
{
    for (auto& descriptor : itemDescriptors)
        descriptor->Hide();
}

void LayoutBase::ShowAll()
{
    for (auto& descriptor : itemDescriptors)
        descriptor->Show();
}

bool LayoutBase::IsValid() const
{
    for (const auto& descriptor : itemDescriptors)
        if (!descriptor->IsValid())
            return false;
    return true;
}

ItemDescriptorBase& LayoutBase::AddDescriptor(NK::Owner<ItemDescriptorBase> descriptor)
{
    ItemDescriptorBase& added = *descriptor;
    itemDescriptors.Push(std::move(descriptor));
    return added;
}

void LayoutBase::NotifyWillCalculateLayout(const QM::Rect& rect, short available) const
{
    if (delegate != nullptr)
        delegate->WillCalculateLayout(*this, rect, available);
}

}  // namespace WZ::Layouting
