#include "Platform/Foundation/NotificationCenter.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "Platform/Foundation/Exception.h"
#include "Platform/Foundation/MainQueue.h"

namespace platform {
namespace {

TEST(NotificationCenter, ReachesThoseWhoAskedInTheirOrder) {
    NotificationCenter center;
    const int one = 1;
    const int other = 2;
    std::string told;
    const auto tell = [&told](char who) {
        return [&told, who](const Notification&) {
            told += who;
        };
    };
    center.addObserverForName("a", nullptr, tell('1'));
    center.addObserverForName(std::nullopt, &one, tell('2'));
    center.addObserverForName("a", &one, tell('3'));
    center.addObserverForName(std::nullopt, nullptr, tell('4'));
    const struct {
        const char* name;
        const void* object;
        const char* told;
    } kRows[] = {{"a", &one, "1234"}, {"a", &other, "14"}, {"b", &one, "24"}, {"b", nullptr, "4"}};
    for (const auto& row : kRows) {
        told.clear();
        center.postNotificationName(row.name, row.object);
        EXPECT_EQ(told, row.told);
    }
    EXPECT_THROW(center.postNotificationName("", nullptr), InvalidArgumentException);
}

TEST(NotificationCenter, CarriesWhatIsKnown) {
    NotificationCenter center;
    const int object = 0;
    std::vector<Notification> told;
    center.addObserverForName("a", nullptr, [&](const Notification& n) { told.push_back(n); });
    center.postNotificationName("a", &object, Dictionary{{"key", Value(1)}});
    ASSERT_EQ(told.size(), 1u);
    EXPECT_EQ(told[0].name, "a");
    EXPECT_EQ(told[0].object, &object);
    EXPECT_EQ(told[0].userInfo["key"], Value(1));
}

TEST(NotificationCenter, ObserversComeAndGoWhileOneIsPosted) {
    NotificationCenter center;
    std::string told;
    NotificationCenter::Token second{};
    center.addObserverForName("a", nullptr, [&](const Notification&) {
        told += '1';
        center.removeObserver(second);
        center.addObserverForName("a", nullptr, [&](const Notification&) { told += 'n'; });
    });
    second = center.addObserverForName("a", nullptr, [&](const Notification&) { told += '2'; });
    center.addObserverForName("a", nullptr, [&](const Notification&) { told += '3'; });
    center.postNotificationName("a", nullptr);
    EXPECT_EQ(told, "13");
    center.removeObserver(second);
    told.clear();
    center.postNotificationName("a", nullptr);
    EXPECT_EQ(told, "13n");
}

TEST(NotificationCenter, LetsOutWhatAnObserverThrows) {
    NotificationCenter center;
    bool isReached = false;
    center.addObserverForName("a", nullptr,
                              [](const Notification&) { throw std::runtime_error("no"); });
    center.addObserverForName("a", nullptr, [&](const Notification&) { isReached = true; });
    EXPECT_THROW(center.postNotificationName("a", nullptr), std::runtime_error);
    EXPECT_FALSE(isReached);
}

TEST(NotificationCenter, ServesManyThreads) {
    NotificationCenter center;
    std::vector<std::thread> threads;
    for (int i = 0; i < 8; i++) {
        threads.emplace_back([&] {
            for (int round = 0; round < 200; round++) {
                int count = 0;
                const auto token = center.addObserverForName(
                    "a", &count, [&count](const Notification&) { count++; });
                center.postNotificationName("a", &count);
                center.removeObserver(token);
                center.postNotificationName("a", &count);
                EXPECT_EQ(count, 1);
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

TEST(MainQueue, DoesWhatOtherThreadsLeave) {
    MainQueue queue;
    std::string done;
    queue.run();
    std::vector<std::thread> threads;
    for (int i = 0; i < 8; i++) {
        threads.emplace_back([&] {
            for (int job = 0; job < 100; job++) {
                queue.add([&] { done += 'x'; });
            }
        });
    }
    queue.runUntil([&] { return done.size() == 800; });
    for (std::thread& thread : threads) {
        thread.join();
    }
    queue.add([&] { queue.add([&] { done = "last"; }); });
    queue.run();
    EXPECT_EQ(done, "last") << "jobs may leave jobs";
}

}  // namespace
}  // namespace platform
