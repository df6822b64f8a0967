// WZ::ModelItemSource<Item, ModelItem>: leads from the rows of a list view back to the model
// items they show. Rows carry the id of their model item; the client says how an id becomes a
// model item (a look-up in its model) with SetModelItemResolver. Ids and rows not shown in the
// list, and every id while no resolver is set, lead to no model item (null).
#pragma once

#include "NK/NKGuid.hpp"

#include <functional>

namespace WZ {

template <typename Item, typename ModelItem>
class ModelItemSource {
public:
    using Resolver = std::function<const ModelItem*(const NK::Guid&)>;

    void SetModelItemResolver(Resolver newResolver) { resolver = std::move(newResolver); }

    const ModelItem* GetModelItem(const NK::Guid& id) const
    {
        if (!resolver || !ShowsId(id))
            return nullptr;
        return resolver(id);
    }

    const ModelItem* GetModelItem(short row) const
    {
        NK::Guid id = GetIdOfRow(row);
        return id == NK::NullGuid ? nullptr : GetModelItem(id);
    }

protected:
    ModelItemSource() = default;
    ~ModelItemSource() = default;

    virtual bool ShowsId(const NK::Guid& id) const = 0;
    // The id shown in the row; the null id when the row shows none.
    virtual NK::Guid GetIdOfRow(short row) const = 0;

private:
    Resolver resolver;
};

}  // namespace WZ
