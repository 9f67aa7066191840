// Objects on many threads at once, under a Russian process locale: every picture must be the
// one a single thread makes, and every refused write must report a whole message in one of the
// two languages, although each picture switches the process locale to "C" and back.

#include <gtest/gtest.h>

#include <clocale>
#include <string>
#include <thread>
#include <utility>
#include <variant>
#include <vector>

#include "tools/host/extension_library.h"
#include "tools/host/extension_session.h"
#include "tools/host/host_strings.h"

using VelkoHost::ExtensionLibrary;
using VelkoHost::ExtensionSession;
using VelkoHost::Value;

namespace {

constexpr int kThreads = 8;
constexpr int kCallsPerThread = 500;
// The name under which the messages are Russian; install-deps.sh makes it.
const char kRussianLocale[] = "Russian_Russia.UTF-8";

const ExtensionLibrary& library() {
    static const ExtensionLibrary loaded(ExtensionLibrary::defaultPath());
    return loaded;
}

struct Refusal {
    const char* property;
    Value value;
    const char* english;
    const char* russian;
};

// One call of the host: a picture, or a write that the object refuses.
struct Call {
    const char* note;
    int type;
    const char* value;
    const Refusal* refusal = nullptr;
    std::vector<std::pair<const char*, Value>> writes = {};
};

const Refusal kBarAlign{"BarAlign", 7,
                        "Incorrect value of «BarAlign» property. Allowed values are: 0, 1, 2, 3.",
                        "Некорректное значение свойства «ВыравниваниеКода». Возможные значения: "
                        "0, 1, 2, 3."};
const Refusal kCodeType{"ТипКода", 25,
                        "Incorrect value of «CodeType» property. Allowed values are: 0, 1, 2, 3, "
                        "4, 5, 6, 7, 8, 9, 10, 11.",
                        "Некорректное значение свойства «ТипКода». Возможные значения: 0, 1, 2, "
                        "3, 4, 5, 6, 7, 8, 9, 10, 11."};
const Refusal kAspectRatio{"AspectRatio", std::string("wide"),
                           "Incorrect value of «AspectRatio» property. Allowed values are: "
                           "string, contains «X:Y», where X and Y are positive integers.",
                           "Некорректное значение свойства «Пропорции». Возможные значения: "
                           "строка формата «X:Y», где X и Y - положительные целые числа."};

const std::vector<Call>& calls() {
    static const std::vector<Call> table = {
        {"EAN-13", 1, "400638133393"},
        {"EAN-8 turned", 0, "9638507", nullptr, {{"CanvasRotation", 90}}},
        {"Code 128, TrueType", 4, "Hello, World", nullptr, {{"Font", std::string("DejaVuSans")}}},
        {"Code 39, large text",
         3,
         "AB-12 CD",
         nullptr,
         {{"Font", std::string("DejaVuSans-Bold")}, {"Height", 400}, {"FontSize", 150}}},
        {"QR", 16, "Привет, мир", nullptr, {{"Height", 150}}},
        {"2 of 5", 7, "123456"},
        {"Codabar upside down", 13, "A40156B", nullptr, {{"CanvasRotation", 180}}},
        {"every other type", 10, "CODE93"},
        {"a value no type takes", 1, "not a number"},
        {"a picture too small", 4, "a long value for a narrow picture", nullptr, {{"Ширина", 20}}},
        {"refused alignment", 4, "x", &kBarAlign},
        {"refused type", 4, "x", &kCodeType},
        {"refused proportions", 4, "x", &kAspectRatio},
    };
    return table;
}

struct Outcome {
    std::vector<unsigned char> png;
    Value result;
    std::vector<VelkoHost::ReportedError> errors;
};

// Everything a call depends on is written anew, so that calls can come in any order.
Outcome perform(ExtensionSession& session, const Call& call) {
    session.host().errors.clear();
    session.set("CodeAuto", false);
    session.set("Width", 300);
    session.set("Height", 120);
    session.set("CanvasRotation", 0);
    session.set("Font", std::string("default"));
    session.set("FontSize", 12);
    for (const auto& [name, value] : call.writes) {
        EXPECT_TRUE(session.set(name, value)) << call.note << ": " << name;
    }
    session.set("CodeType", call.type);
    session.set("CodeValue", std::string(call.value));
    Outcome outcome;
    if (call.refusal) {
        EXPECT_FALSE(session.set(call.refusal->property, call.refusal->value)) << call.note;
    } else {
        outcome.png = session.getBarcode();
        outcome.result = session.get("Result");
    }
    outcome.errors = session.host().errors;
    return outcome;
}

std::string description(const VelkoHost::ReportedError& error) {
    return VelkoHost::toUtf8(error.description);
}

class ConcurrentObjects : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(library().loaded()) << library().error();
        ASSERT_NE(std::setlocale(LC_ALL, kRussianLocale), nullptr)
            << kRussianLocale << " is missing; scripts/install-deps.sh makes it";
    }
    void TearDown() override { std::setlocale(LC_ALL, "C"); }

    static void speakRussian(ExtensionSession& session) {
        const std::u16string name = VelkoHost::toUtf16("Russian_Russia");
        const std::vector<unsigned short> units(name.begin(), name.end() + 1);
        session.object()->SetLocale(units.data());
    }
};

TEST_F(ConcurrentObjects, PicturesAndMessagesMatchThoseOfOneThread) {
    std::vector<Outcome> expected;
    {
        ExtensionSession session(library());
        speakRussian(session);
        for (const Call& call : calls()) {
            expected.push_back(perform(session, call));
            const Outcome& outcome = expected.back();
            if (call.refusal) {
                // Alone, the object gets the host's language back after each picture.
                ASSERT_EQ(outcome.errors.size(), 1u) << call.note;
                EXPECT_EQ(description(outcome.errors[0]), call.refusal->russian) << call.note;
                EXPECT_EQ(outcome.errors[0].systemCode, 0x80070057L) << call.note;
            } else {
                EXPECT_TRUE(outcome.errors.empty()) << call.note;
                EXPECT_FALSE(outcome.png.empty()) << call.note;
            }
        }
    }
    EXPECT_EQ(std::get<int>(expected[0].result), 0);
    EXPECT_EQ(std::get<int>(expected[8].result), 1);

    std::vector<std::vector<std::string>> failures(kThreads);
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t) {
        threads.emplace_back([t, &expected, &failures] {
            ExtensionSession session(library());
            speakRussian(session);
            const std::size_t count = calls().size();
            for (int i = 0; i < kCallsPerThread; ++i) {
                // Each thread walks the calls with a step of its own.
                const std::size_t index = (static_cast<std::size_t>(i) * (2 * t + 1) + t) % count;
                const Call& call = calls()[index];
                const Outcome outcome = perform(session, call);
                const Outcome& alone = expected[index];
                if (outcome.png != alone.png || outcome.result != alone.result) {
                    failures[t].push_back(std::string(call.note) + ": another picture");
                }
                if (outcome.errors.size() != alone.errors.size()) {
                    failures[t].push_back(std::string(call.note) + ": another error count");
                } else if (call.refusal) {
                    const std::string text = description(outcome.errors[0]);
                    if (text != call.refusal->english && text != call.refusal->russian) {
                        failures[t].push_back(std::string(call.note) + ": message " + text);
                    }
                }
                if (failures[t].size() > 5) {
                    return;
                }
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    for (int t = 0; t < kThreads; ++t) {
        for (const std::string& failure : failures[t]) {
            ADD_FAILURE() << "thread " << t << ": " << failure;
        }
    }
}

}  // namespace
