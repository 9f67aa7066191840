#include <gtest/gtest.h>

#include <sstream>
#include <string>

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

// The logging kit is kept for debugging sessions, not called on the barcode path: one pass over it.
TEST(LoggingKit, LogsPrefixesSleepsAndNames) {
    EXPECT_EQ(PLogger().addNote("%d", 1), -1);
    EXPECT_FALSE(PLogger(std::string("/nonexistent-dir/log.txt")).isOpened());
    std::ostringstream out;
    PLogger logger(&out);
    logger << static_cast<short>(-1) << 2u << 4 << 3.5 << true << std::string("|");
    EXPECT_EQ(logger.addNote("%s=%d", "n", 42), 4);
    PLogger* previous = pInstallDebugLogger(&logger);
    pDebugMessageHandler()({DebugMessageContext::Debug, 3}, "d");
    pDebugMessageHandler()({DebugMessageContext::Warning, 3}, "w");
    pDebugMessageHandler()({DebugMessageContext::Fatal, -1}, "f");
    pDebugMessageHandler()({7, 1}, "of no kind");
    EXPECT_EQ(pInstallDebugLogger(previous), &logger);
    EXPECT_EQ(out.str(), "-1243.51|n=42[D(3)]d\n[W]w\n[F]f\n");

    PCurrentThread::sleep(1);
    PCurrentThread::mSleep(1);
    PCurrentThread::nSleep(1);
    EXPECT_EQ(getCurrentTimeString("%Y").find('\0'), 4u);
    EXPECT_EQ(getLogFileName().rfind("VelkoBarcodeLib_x", 0), 0u);
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
