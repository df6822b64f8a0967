#include "WZSources/CompoundControls/FolderedDataView/WZFolderablePopUpItem.hpp"

namespace WZ::Folderable {

PopUpItem::PopUpItem(const ModelItem& model, const NK::UniString& text, const QM::Icon& icon)
    : model(&model), text(text), icon(icon)
{
}

PopUpItem::~PopUpItem() = default;

}  // namespace WZ::Folderable
