#include "WZSources/Diff/WZTreeViewDecorator.hpp"

namespace WZ {

UntypedTreeViewDecorator::~UntypedTreeViewDecorator() = default;

}  // namespace WZ
