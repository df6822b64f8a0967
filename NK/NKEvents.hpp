// NK::EventSource / NK::EventObserver: observer lists notified in registration order. An
// observer may detach itself, or another observer, during a notification: a detached observer
// that has not been reached yet is not called, and an observer attached meanwhile is called from
// the next notification on. Observers are registered by reference and never
// owned; an observer detaches itself from every source when destroyed.
#pragma once

#include "NK/NKTypes.hpp"

#include <algorithm>
#include <functional>
#include <vector>

namespace NK {

class EventSource;

class EventObserver {
public:
    EventObserver() = default;
    EventObserver(const EventObserver&) = delete;
    EventObserver& operator=(const EventObserver&) = delete;
    virtual ~EventObserver();

private:
    friend class EventSource;
    std::vector<EventSource*> sources;
};

class EventSource {
public:
    EventSource() = default;
    EventSource(const EventSource&) = delete;
    EventSource& operator=(const EventSource&) = delete;
    virtual ~EventSource();

    // Adds the observer at the end; attaching twice keeps one entry.
    void Attach(EventObserver& observer);
    void Detach(EventObserver& observer);
    bool IsAttached(const EventObserver& observer) const;
    UIndex GetObserverCount() const;

    // Calls fn for every observer of type Observer, in registration order.
    template <typename Observer, typename Fn>
    void NotifyAll(Fn&& fn) const
    {
        ++notifyDepth;
        // Observers attached during this notification (also one that detached and attached again)
        // hear the next one, not this one.
        const UIndex count = observers.size();
        for (UIndex i = 0; i < count; ++i) {
            EventObserver* observer = observers[i];
            if (observer == nullptr)
                continue;
            if (auto* typed = dynamic_cast<Observer*>(observer))
                fn(*typed);
        }
        if (--notifyDepth == 0)
            Compact();
    }

private:
    void Compact() const;

    // Detached entries are nulled during a notification and removed when it ends.
    mutable std::vector<EventObserver*> observers;
    mutable int notifyDepth = 0;
};

}  // namespace NK
