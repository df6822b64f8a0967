#include "NK/NKEvents.hpp"

namespace NK {

EventObserver::~EventObserver()
{
    std::vector<EventSource*> copy = sources;
    for (EventSource* source : copy)
        source->Detach(*this);
}

EventSource::~EventSource()
{
    for (EventObserver* observer : observers) {
        if (observer == nullptr)
            continue;
        auto& list = observer->sources;
        list.erase(std::remove(list.begin(), list.end(), this), list.end());
    }
}

void EventSource::Attach(EventObserver& observer)
{
    if (IsAttached(observer))
        return;
    observers.push_back(&observer);
    observer.sources.push_back(this);
}

void EventSource::Detach(EventObserver& observer)
{
    auto it = std::find(observers.begin(), observers.end(), &observer);
    if (it == observers.end())
        return;
    if (notifyDepth > 0)
        *it = nullptr;
    else
        observers.erase(it);
    auto& list = observer.sources;
    list.erase(std::remove(list.begin(), list.end(), this), list.end());
}

bool EventSource::IsAttached(const EventObserver& observer) const
{
    return std::find(observers.begin(), observers.end(), &observer) != observers.end();
}

UIndex EventSource::GetObserverCount() const
{
    return static_cast<UIndex>(std::count_if(observers.begin(), observers.end(), [](auto* o) { return o != nullptr; }));
}

void EventSource::Compact() const
{
    observers.erase(std::remove(observers.begin(), observers.end(), nullptr), observers.end());
}

}  // namespace NK
