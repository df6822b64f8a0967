// WZ::Folderable::PopUpItem: one entry of the pop-up of parent folders: the folder it stands
// for, the text and the icon it shows.
#pragma once

#include "NK/NKUniString.hpp"
#include "QM/QMIcon.hpp"

namespace WZ::Folderable {

class ModelItem;

class PopUpItem {
public:
    PopUpItem(const ModelItem& model, const NK::UniString& text, const QM::Icon& icon);
    virtual ~PopUpItem();

    const ModelItem& GetModel() const noexcept { return *model; }
    const NK::UniString& GetText() const noexcept { return text; }
    const QM::Icon& GetIcon() const noexcept { return icon; }

private:
    const ModelItem* model;
    NK::UniString text;
    QM::Icon icon;
};

}  // namespace WZ::Folderable
