#include "NK/NKEvents.hpp"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace {

struct PingObserver : NK::EventObserver {
    virtual void Ping() = 0;
};

struct Recorder : PingObserver {
    Recorder(std::string name, std::vector<std::string>& log) : name(std::move(name)), log(log) {}
    void Ping() override
    {
        log.push_back(name);
        if (onPing)
            onPing();
    }
    std::string name;
    std::vector<std::string>& log;
    std::function<void()> onPing;
};

struct Pinger : NK::EventSource {
    void Ping() const { NotifyAll<PingObserver>([](PingObserver& o) { o.Ping(); }); }
};

TEST(EventSourceTest, NotifiesInRegistrationOrderAndSkipsObserversDetachedMidway)
{
    std::vector<std::string> log;
    Pinger source;
    Recorder a("a", log), b("b", log), c("c", log);
    source.Attach(a);
    source.Attach(b);
    source.Attach(c);
    source.Attach(a);  // once only
    a.onPing = [&] { source.Detach(c); };
    source.Ping();
    EXPECT_EQ(log, (std::vector<std::string> {"a", "b"}));
    EXPECT_EQ(source.GetObserverCount(), 2u);
}

TEST(EventSourceTest, ObserverReattachingItselfIsNotCalledTwiceInOneNotification)
{
    std::vector<std::string> log;
    Pinger source;
    Recorder a("a", log), b("b", log);
    source.Attach(a);
    source.Attach(b);
    a.onPing = [&] {
        source.Detach(a);
        source.Attach(a);
    };
    source.Ping();
    EXPECT_EQ(log, (std::vector<std::string> {"a", "b"}));
    log.clear();
    source.Ping();  // now registered after b
    EXPECT_EQ(log, (std::vector<std::string> {"b", "a"}));
}

TEST(EventSourceTest, DestroyedObserverLeavesItsSources)
{
    std::vector<std::string> log;
    Pinger source;
    {
        Recorder gone("gone", log);
        source.Attach(gone);
    }
    EXPECT_EQ(source.GetObserverCount(), 0u);
    source.Ping();
    EXPECT_TRUE(log.empty());
}

}  // namespace
