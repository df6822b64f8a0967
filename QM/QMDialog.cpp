#include "QM/QMDialog.hpp"

#define NK_SOURCE_PATH "QM\\QMDialog"
#include "NK/NKAssert.hpp"

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

void Dialog::EndMoveResizeItems()
{
    if (!NK_PRECOND(moveResizeDepth > 0))
        return;
    if (--moveResizeDepth == 0)
        ++moveResizeBrackets;
}

std::string Dialog::GetHeading() const
{
    return "Dialog \"" + title.ToUtf8() + "\" " + std::to_string(GetClientWidth()) + "x" +
           std::to_string(GetClientHeight()) + (IsOpen() ? " open" : " closed");
}

}  // namespace QM
