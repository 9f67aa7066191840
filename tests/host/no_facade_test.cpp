// An object without its facade (before Init, after Done, after an Init whose allocation failed)
// answers every call false or empty, silently, and takes a later Init as if new. Meant for
// the sanitizer build as well: a call that reached the missing facade would be caught there.

#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <new>
#include <string>
#include <variant>
#include <vector>

#include "tools/host/extension_library.h"
#include "tools/host/extension_session.h"

using VelkoHost::ExtensionLibrary;
using VelkoHost::ExtensionSession;
using VelkoHost::Value;

namespace {

// The process's next allocation fails, as one does when memory runs out. A library with its
// own C++ runtime allocates through malloc, which this process's definition stands in for;
// with the shared runtime (the sanitizer builds) it allocates through this operator new.
std::atomic<bool> failNextNew{false};

}  // namespace

#ifdef VELKO_RUNTIME_IN_LIBRARY
extern "C" void* __libc_malloc(std::size_t size);
extern "C" void* malloc(std::size_t size) {
    return failNextNew.exchange(false) ? nullptr : __libc_malloc(size);
}
#else
namespace {
void* allocate(std::size_t size) noexcept {
    return failNextNew.exchange(false) ? nullptr : std::malloc(size ? size : 1);
}
}  // namespace

void* operator new(std::size_t size) {
    if (void* memory = allocate(size)) {
        return memory;
    }
    throw std::bad_alloc();
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return allocate(size);
}
// GCC takes free() here for a mismatch with the operator new above, which is malloc's.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic ignored "-Wmismatched-new-delete"
#endif
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
void operator delete(void* memory, const std::nothrow_t&) noexcept {
    std::free(memory);
}
#endif

namespace {

const ExtensionLibrary& library() {
    static const ExtensionLibrary loaded(ExtensionLibrary::defaultPath());
    return loaded;
}

// Every property by every kind of value, every method, and the locale: nothing is answered.
void expectNothingAnswered(ExtensionSession& session, const char* state) {
    const std::vector<Value> values = {
        7, 2.5, true, std::string("DejaVuSans"), std::string("3:2"), Value()};
    for (long index = -1; index <= 43; ++index) {
        EXPECT_EQ(session.get(index), Value()) << state << " reads " << index;
        for (const Value& value : values) {
            EXPECT_FALSE(session.set(index, value)) << state << " writes " << index;
        }
    }
    const std::vector<std::vector<Value>> parameters = {{}, {0}, {std::string("DejaVuSans")}};
    for (long method = 0; method <= 3; ++method) {
        for (const std::vector<Value>& given : parameters) {
            Value result;
            EXPECT_FALSE(session.call(method, given, result)) << state << " calls " << method;
            EXPECT_EQ(result, Value()) << state << " calls " << method;
        }
    }
    const std::vector<unsigned short> locale = {'C', 0};
    session.object()->SetLocale(locale.data());
    EXPECT_EQ(session.registeredName(), "Barcode") << state;
    EXPECT_EQ(session.memory().outstanding(), 0u) << state;
    EXPECT_FALSE(session.sawBufferFault()) << state;
}

void expectAPicture(ExtensionSession& session) {
    EXPECT_TRUE(session.set("CodeValue", std::string("4006381333931")));
    EXPECT_FALSE(session.getBarcode().empty());
    EXPECT_EQ(session.get("Result"), Value(0));
}

TEST(ObjectWithoutFacade, AnswersNothingAndTakesALaterInit) {
    ASSERT_TRUE(library().loaded()) << library().error();
    ExtensionSession session(library(), true, false);
    ASSERT_NE(session.object(), nullptr);
    expectNothingAnswered(session, "before Init");
    EXPECT_TRUE(session.host().errors.empty());

    ASSERT_TRUE(session.init());
    expectAPicture(session);
    session.done();
    expectNothingAnswered(session, "after Done");
    EXPECT_TRUE(session.host().errors.empty());

    failNextNew = true;
    EXPECT_FALSE(session.init());
    EXPECT_FALSE(failNextNew) << "Init allocated nothing";
    // The failed Init itself is told to the host, once.
    ASSERT_EQ(session.host().errors.size(), 1u);
    EXPECT_EQ(session.host().errors[0].code, 1003);
    expectNothingAnswered(session, "after a failed Init");
    EXPECT_EQ(session.host().errors.size(), 1u);

    ASSERT_TRUE(session.init());
    expectAPicture(session);
}

}  // namespace
