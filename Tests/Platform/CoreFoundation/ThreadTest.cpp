#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "Tests/Platform/CoreFoundation/Ref.h"

namespace {

using test::makeString;
using test::own;
using test::utf8Of;

/// Runs `work` on eight threads at once, with each one's number.
template <class Work>
void onEightThreads(Work work) {
    std::vector<std::thread> threads;
    std::atomic<int> ready = 0;
    for (int number = 0; number < 8; ++number) {
        threads.emplace_back([&, number] {
            ++ready;
            while (ready < 8) {
                std::this_thread::yield();
            }
            work(number);
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

TEST(Threads, ShareOneObject) {
    const auto shared = makeString("shared caf\u00E9");
    onEightThreads([&](int) {
        for (int i = 0; i < 2000; ++i) {
            CFRetain(shared.get());
            EXPECT_EQ(CFStringGetLength(shared.get()), 11);
            CFRelease(shared.get());
        }
    });
    EXPECT_EQ(CFGetRetainCount(shared.get()), 1);
}

TEST(Threads, TheLastOwnerFreesTheObject) {
    for (int round = 0; round < 100; ++round) {
        const CFStringRef string = makeString("passed on").release();
        for (int i = 1; i < 8; ++i) {
            CFRetain(string);
        }
        onEightThreads([&](int) {
            EXPECT_EQ(utf8Of(string), "passed on");
            CFRelease(string);
        });
    }
}

TEST(Threads, MakeTheSameIdentifierWhileOthersReleaseIt) {
    onEightThreads([](int) {
        for (int i = 0; i < 2000; ++i) {
            const auto uuid =
                own(CFUUIDCreateWithBytes(nullptr, 9, 9, 9, 9, 9, 9, 9, 9, 9, 9, 9, 9, 9, 9, 9, 9));
            ASSERT_EQ(CFUUIDGetUUIDBytes(uuid.get()).byte7, 9);
        }
    });
}

TEST(Threads, MakeAnIdentifierConstantWhileOthersReleaseIt) {
    for (UInt8 round = 0; round < 50; ++round) {
        onEightThreads([&](int number) {
            const auto uuid = own(
                CFUUIDCreateWithBytes(nullptr, 8, round, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8));
            if (number % 2 == 0) {
                const CFUUIDRef constant = CFUUIDGetConstantUUIDWithBytes(
                    nullptr, 8, round, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8);
                EXPECT_EQ(constant, uuid.get());
            }
        });
    }
}

TEST(Threads, NameTheSameConstants) {
    std::vector<CFStringRef> first(200);
    for (std::size_t i = 0; i < first.size(); ++i) {
        first[i] = i % 2 == 0
                       ? nullptr
                       : __CFStringMakeConstantString(("constant " + std::to_string(i)).c_str());
    }
    onEightThreads([&](int) {
        for (std::size_t i = 0; i < first.size(); ++i) {
            const std::string text = "constant " + std::to_string(i);
            const CFStringRef constant = __CFStringMakeConstantString(text.c_str());
            EXPECT_EQ(utf8Of(constant), text);
            if (first[i] != nullptr) {
                EXPECT_EQ(constant, first[i]);
            }
        }
    });
}

TEST(Threads, FillDictionariesOfTheirOwn) {
    onEightThreads([](int number) {
        const auto dictionary = own(CFDictionaryCreateMutable(
            nullptr, 0, &kCFTypeDictionaryKeyCallBacks, &kCFTypeDictionaryValueCallBacks));
        for (int i = 0; i < 200; ++i) {
            const auto key = makeString("key " + std::to_string(i % 10));
            CFDictionarySetValue(dictionary.get(), key.get(), CFSTR("value"));
            CFDictionarySetValue(dictionary.get(), CFSTR("number"),
                                 makeString(std::to_string(number)).get());
        }
        EXPECT_EQ(CFDictionaryGetCount(dictionary.get()), 11);
    });
}

}  // namespace
