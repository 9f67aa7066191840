#include "host/jni_glue.h"

#include <atomic>
#include <cstdint>
#include <vector>

#include "host/text_forms.h"
#include "layer/foundation/trace.h"

namespace {

// Written by the loader's thread in JNI_OnLoad, read by any thread of the host.
std::atomic<JavaVM*> g_javaVM{nullptr};

// The low 32 bits, as the log lines have always shown an environment.
unsigned int logged(const JNIEnv* env) {
    return static_cast<unsigned int>(reinterpret_cast<std::uintptr_t>(env));
}

// The NDK's jni.h attaches into a JNIEnv**, the JDK's into a void**; this fits both.
struct EnvSlot {
    JNIEnv* env = nullptr;
    operator JNIEnv**() { return &env; }
    operator void**() { return reinterpret_cast<void**>(&env); }
};

}  // namespace

extern "C" {

JNIEXPORT jint JNICALL JNI_OnLoad(JavaVM* vm, void*) {
    trace("JNI_OnLoad()");
    g_javaVM = vm;
    return kVelkoJniVersion;
}

JNIEXPORT void JNICALL JNI_OnUnload(JavaVM*, void*) {
    trace("JNI_OnUnload()");
    g_javaVM = nullptr;
}

}  // extern "C"

JNIEnv* getJniEnv() {
    trace("getJniEnv()");
    JavaVM* vm = g_javaVM;
    if (!vm) {
        return nullptr;
    }
    void* env = nullptr;
    const jint status = vm->GetEnv(&env, kVelkoJniVersion);
    if (status == JNI_OK) {
        trace("GetEnv(), env = %08X", logged(static_cast<JNIEnv*>(env)));
        return static_cast<JNIEnv*>(env);
    }
    if (status != JNI_EDETACHED) {
        return nullptr;
    }
    JavaVMAttachArgs args{kVelkoJniVersion, nullptr, nullptr};
    EnvSlot attached;
    if (vm->AttachCurrentThreadAsDaemon(attached, &args) != JNI_OK) {
        return nullptr;
    }
    trace("AttachCurrentThreadAsDaemon(), env = %08X", logged(attached.env));
    return attached.env;
}

std::wstring Java_To_WStr(JNIEnv* env, jstring text) {
    std::wstring wide;
    if (!env || !text) {
        return wide;
    }
    const jsize length = env->GetStringLength(text);
    const jchar* units = env->GetStringChars(text, nullptr);
    if (!units) {
        return wide;
    }
    wide.assign(units, units + length);
    env->ReleaseStringChars(text, units);
    return wide;
}

jstring WCHARp_To_Java(JNIEnv* env, unsigned short* text) {
    if (JNIEnv* current = getJniEnv()) {
        env = current;
    }
    if (!env || !text) {
        return nullptr;
    }
    // With its terminator, so that even an empty copy has an address.
    const unsigned int length = getLenShortWcharStr(text);
    const std::vector<jchar> units(text, text + length + 1);
    return env->NewString(units.data(), static_cast<jsize>(length));
}

jstring WStr_To_Java(JNIEnv* env, std::wstring text) {
    std::vector<unsigned short> units(text.size() + 1);
    unsigned short* buffer = units.data();
    convToShortWchar(&buffer, text.c_str(), static_cast<unsigned int>(units.size()));
    return WCHARp_To_Java(env, buffer);
}

jbyteArray Str_To_JavaByteArray(JNIEnv* env, std::string bytes) {
    if (!env) {
        return nullptr;
    }
    const jsize length = static_cast<jsize>(bytes.size());
    jbyteArray array = env->NewByteArray(length);
    if (array) {
        env->SetByteArrayRegion(array, 0, length, reinterpret_cast<const jbyte*>(bytes.data()));
    }
    return array;
}
