#pragma once

#include <mutex>
#include <type_traits>

// A shared library that is opened on the first call of one of its functions rather than when
// the extension is loaded. The extension's own definitions of those functions, under the names
// and types of the library's headers, go to the library's through it (see layer/deferred), so
// that loading the extension binds only what every picture needs: a Code 128 needs neither
// fonts nor Data Matrix nor a logo decoder, and each library with its own dependencies cost
// more at load than the whole picture.
class DeferredLibrary {
public:
    // soname: the name the library is found by, as the build found it.
    explicit constexpr DeferredLibrary(const char* soname) : soname(soname) {}
    DeferredLibrary(const DeferredLibrary&) = delete;
    DeferredLibrary& operator=(const DeferredLibrary&) = delete;

    // The library's function of that name as a pointer of type Function; null when the library
    // or the name isn't there.
    template <class Function>
    Function function(const char* name) const {
        return reinterpret_cast<Function>(symbol(name));
    }

    // Function, the extension's definition of the library's function of that name, passed on to
    // it with args; missing while it can't be had. Looked up once, on the first call.
    template <auto Function, class... Args>
    std::invoke_result_t<decltype(Function), Args...> call(
        const char* name, std::invoke_result_t<decltype(Function), Args...> missing,
        Args... args) const {
        static const auto found = function<decltype(Function)>(name);
        return found ? found(args...) : missing;
    }

    // The same for a function that answers nothing: no call while it can't be had.
    template <auto Function, class... Args>
    void callIfThere(const char* name, Args... args) const {
        static const auto found = function<decltype(Function)>(name);
        if (found) {
            found(args...);
        }
    }

private:
    void* symbol(const char* name) const;

    const char* soname;
    mutable std::once_flag opening;
    // Never closed: functions of it may be called until the process ends.
    mutable void* handle = nullptr;
};
