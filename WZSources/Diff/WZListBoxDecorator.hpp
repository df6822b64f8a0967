// WZ::ListBoxDecorator: writes the texts, icons and other cell contents of one list box row for
// its item. Implemented by the client (the list box layouts); called by the smart list box
// updater for every row it inserts or refreshes, never for separator rows.
#pragma once

#include "QM/QMListBox.hpp"
#include "WZSources/Diff/WZDiffable.hpp"

namespace WZ {

class ListBoxDecorator {
public:
    virtual void DecorateRow(QM::ListBox& listBox, short row, const Diffable& item) const = 0;
    virtual ~ListBoxDecorator();
};

}  // namespace WZ
