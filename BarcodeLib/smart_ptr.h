#pragma once

namespace BarcodeVelko {

// The core's single-owner pointer: no count, no copies. release() hands the object on.
template <class T>
class SmartPtr {
public:
    SmartPtr() = default;
    explicit SmartPtr(T* object) : ptr(object) {}
    SmartPtr(const SmartPtr&) = delete;
    SmartPtr& operator=(const SmartPtr&) = delete;
    ~SmartPtr() { reset(); }

    SmartPtr& operator=(T* object) {
        if (object != ptr) {
            reset();
            ptr = object;
        }
        owner = true;
        return *this;
    }

    T* release() {
        T* object = ptr;
        ptr = nullptr;
        return object;
    }

    T* get() const { return ptr; }
    T* operator->() const { return ptr; }
    T& operator*() const { return *ptr; }
    explicit operator bool() const { return ptr != nullptr; }

private:
    void reset() {
        if (owner && ptr) {
            delete ptr;
        }
        ptr = nullptr;
    }

    T* ptr = nullptr;
    bool owner = true;
};

}  // namespace BarcodeVelko
