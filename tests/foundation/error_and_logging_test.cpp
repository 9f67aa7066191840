#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>
#include <thread>

#include "layer/foundation/p_current_thread.h"
#include "layer/foundation/p_debug_global.h"
#include "layer/foundation/p_error.h"
#include "layer/foundation/p_logger.h"
#include "layer/foundation/time_strings.h"
#include "layer/foundation/trace.h"

namespace {

TEST(PError, ToStringJoinsOnlyTheFilledParts) {
    struct Case {
        PError error;
        std::wstring text;
    };
    const Case cases[] = {
        {PError(), L"[0]"},
        {PError(2, PString(L"bad")), L"[2]bad"},
        {PError(1, PString(L"m"), PString(L"a"), PString(), 5), L"a:5[1]m"},
        {PError(-3, PString(L"m"), PString(), PString(L"draw"), 0), L"draw:[-3]m"},
        {PError(4, PString(), PString(L"f.cpp"), PString(L"g"), 12), L"f.cpp:g:12[4]"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(c.error.toString().toStdWString(), c.text);
    }
}

TEST(PError, CopiesKeepTheirErrorWhenAnotherChangesOrClears) {
    const PError first(7, PString(L"seven"), PString(L"mod"), PString(L"fn"), 3);
    PError cleared = first;
    cleared.clear();
    EXPECT_EQ(cleared.toString().toStdWString(), L"[0]");
    PError changed = first;
    changed.setError(8, PString(L"eight"));
    changed.setInfo(PString(L"m2"), PString(), 9);
    EXPECT_EQ(changed.toString().toStdWString(), L"m2:9[8]eight");
    EXPECT_EQ(first.toString().toStdWString(), L"mod:fn:3[7]seven");
}

TEST(PLogger, WritesOnlyWhenOpen) {
    PLogger closed;
    EXPECT_EQ(closed.addNote("%d", 1), -1);
    closed << 5 << std::string("x");
    EXPECT_FALSE(PLogger(std::string("/nonexistent-dir/log.txt")).isOpened());

    std::ostringstream out;
    PLogger logger(&out);
    logger << static_cast<short>(-1) << 2u << 3.5 << true << std::string("|");
    EXPECT_EQ(logger.addNote("%s=%d", "n", 42), 4);
    EXPECT_EQ(out.str(), "-123.51|n=42");

    const std::string path = ::testing::TempDir() + "p_logger_test.txt";
    PLogger(path) << std::string("line");
    std::string line;
    std::ifstream(path) >> line;
    EXPECT_EQ(line, "line");
    std::remove(path.c_str());
}

TEST(DebugChannel, DefaultHandlerPrefixesByKindAndLevel) {
    std::ostringstream out;
    PLogger logger(&out);
    PLogger* previous = pInstallDebugLogger(&logger);
    const std::pair<DebugMessageContext, const char*> cases[] = {
        {{DebugMessageContext::Debug, -1}, "m\n"},
        {{DebugMessageContext::Debug, 3}, "[D(3)]m\n"},
        {{DebugMessageContext::Warning, 3}, "[W]m\n"},
        {{DebugMessageContext::Fatal, -1}, "[F]m\n"},
        {{7, 1}, ""},
    };
    for (const auto& [context, expected] : cases) {
        out.str("");
        pDebugMessageHandler()(context, "m");
        EXPECT_EQ(out.str(), expected);
    }
    // Without a logger the default handler has nowhere to write, and doesn't fail.
    pInstallDebugLogger(nullptr);
    pDebugMessageHandler()(DebugMessageContext(), "dropped");
    EXPECT_EQ(pInstallDebugLogger(previous), nullptr);
}

TEST(PCurrentThread, SleepUnitsAreMilliMicroAndNanoseconds) {
    const auto timed = [](void (*sleep)(int), int amount) {
        const auto start = std::chrono::steady_clock::now();
        sleep(amount);
        return std::chrono::steady_clock::now() - start;
    };
    // Above one second, so the seconds and the nanoseconds part both count.
    EXPECT_GE(timed(&PCurrentThread::sleep, 1001), std::chrono::milliseconds(1001));
    EXPECT_LT(timed(&PCurrentThread::mSleep, 2000), std::chrono::milliseconds(500));
    EXPECT_GE(timed(&PCurrentThread::nSleep, 2000000), std::chrono::milliseconds(2));
}

TEST(TimeStrings, LogFileNameAndFixedSizeTime) {
    EXPECT_EQ(getCurrentTimeString("%Y").find('\0'), 4u);
    EXPECT_EQ(getCurrentTimeString("%Y").size(), 256u);
    std::ostringstream thread;
    thread << "VelkoBarcodeLib_x" << sizeof(void*) * 8 << "_t" << std::this_thread::get_id() << "_";
    const std::string name = getLogFileName();
    EXPECT_EQ(name.rfind(thread.str(), 0), 0u) << name;
    EXPECT_EQ(name.substr(thread.str().size() + 14), ".txt") << name;
}

TEST(Trace, WritesPriorityTagAndTextToStandardError) {
    ::testing::internal::CaptureStderr();
    trace("value %d of %s", 3, "four");
    const std::string line = ::testing::internal::GetCapturedStderr();
    // liblog puts the tag, the priority letter, time, process and thread in front; ours the
    // priority and the tag.
    const std::string text = "value 3 of four\n";
    const bool byLiblog = line.rfind("BarcodeLib I ", 0) == 0 && line.size() > text.size() &&
                          line.compare(line.size() - text.size(), text.size(), text) == 0;
    EXPECT_TRUE(byLiblog || line == "4 BarcodeLib: " + text) << line;
}

}  // namespace
