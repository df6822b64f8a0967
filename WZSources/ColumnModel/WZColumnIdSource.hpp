// Id sources: hand out consecutive ids (1, 2, 3 ...) for columns and headers of clients that
// need no ids of their own. The two kinds are distinct types so that a column id cannot be
// taken for a header id by mistake.
#pragma once

namespace WZ {

template <typename Id, typename Tag>
class IdSource {
public:
    explicit IdSource(Id first = Id(1)) : next(first) {}
    Id GetNext() { return next++; }
    Id Peek() const { return next; }

private:
    Id next;
};

struct ColumnIdTag;
struct HeaderIdTag;

template <typename Id = short>
using ColumnIdSource = IdSource<Id, ColumnIdTag>;
template <typename Id = short>
using HeaderIdSource = IdSource<Id, HeaderIdTag>;

}  // namespace WZ
