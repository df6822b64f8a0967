#include "WZSources/ListBoxView/WZListBoxLayoutBase.hpp"

namespace WZ {

LayoutBase::~LayoutBase() = default;

void LayoutBase::SetupListBox(QM::ListBox& listBox)
{
    GetBaseColumnManager().Setup(listBox);
}

void LayoutBase::DoLayout(QM::ListBox& listBox)
{
    // The columns' widths are the truth: a dragged header divider has already been written into
    // them, so nothing is read back from the tab fields here.
    GetBaseColumnManager().Resize(listBox, false);
}

}  // namespace WZ
