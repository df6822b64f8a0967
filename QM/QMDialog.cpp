#include "QM/QMDialog.hpp"

namespace QM {

Dialog::Dialog(const NK::UniString& title, short clientWidth, short clientHeight, GrowType growType)
    : Panel(clientWidth, clientHeight), title(title), growType(growType)
{
}

bool Dialog::SimulateUserResize(short width, short height)
{
    short newWidth = CanGrowHorizontally() && width >= 0 ? width : GetClientWidth();
    short newHeight = CanGrowVertically() && height >= 0 ? height : GetClientHeight();
    if (newWidth == GetClientWidth() && newHeight == GetClientHeight())
        return false;
    ChangeClientSize(newWidth, newHeight, Origin::User);
    return true;
}

}  // namespace QM
