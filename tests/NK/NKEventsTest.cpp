#include "NK/NKEvents.hpp"

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace {

struct PingObserver : NK::EventObserver {
    virtual void Ping() = 0;
};

struct Recorder : PingObserver {
    Recorder(std::string name, std::string& log) : name(std::move(name)), log(log) {}
    void Ping() override
    {
        log += name;
        if (onPing)
            onPing();
    }
    std::string name;
    std::string& log;
    std::function<void()> onPing;
};

struct Pinger : NK::EventSource {
    void Ping() const { NotifyAll<PingObserver>([](PingObserver& o) { o.Ping(); }); }
};

TEST(EventSourceTest, ObserversDetachedMidwayAreSkippedAndReattachedOnesHearOnlyTheNextNotification)
{
    std::string log;
    Pinger source;
    Recorder a("a", log), b("b", log), c("c", log);
    for (Recorder* observer : {&a, &b, &c, &a})  // a once only
        source.Attach(*observer);
    a.onPing = [&] {
        source.Detach(c);
        source.Detach(a);
        source.Attach(a);
    };
    source.Ping();
    EXPECT_EQ(log, "ab");
    a.onPing = nullptr;
    source.Ping();  // a is now registered after b
    EXPECT_EQ(log, "abba");
    {
        Recorder gone("gone", log);
        source.Attach(gone);
    }
    EXPECT_EQ(source.GetObserverCount(), 2u);  // a destroyed observer leaves its sources
}

}  // namespace
