#include "host/barcode_lib_performer_android.h"

#include <jni.h>

#include <cstdint>
#include <memory>
#include <mutex>

#include "host/jni_glue.h"
#include "host/text_forms.h"

BarcodeLibPerformerAndroid* g_androidAppPerformer = nullptr;

struct BarcodeLibPerformerAndroidPrivate {
    IVelkoAndroidHelper* helper = nullptr;
    jclass loaderClass = nullptr;
    jobject loaderObject = nullptr;
    IVelkoHostEx* host = nullptr;
};

namespace {

const wchar_t kLoaderClass[] = L"com.evelko.BarcodeLibNativePackage.LibLoader";
const char kLoaderConstructor[] = "(Landroid/app/Activity;J)V";

// g_androidAppPerformer, and whether a performer ever took it.
struct PerformerSlot {
    std::mutex mutex;
    bool taken = false;
};

PerformerSlot& performerSlot() {
    static PerformerSlot slot;
    return slot;
}

// A Java exception must not stay pending: the next JNI call on this thread would be undefined.
void clearJavaException(JNIEnv* env) {
    if (env->ExceptionCheck()) {
        env->ExceptionDescribe();
        env->ExceptionClear();
    }
}

// Room for the few local references the start of the Java side makes.
constexpr jint kLocalReferences = 8;

struct LocalFrame {
    JNIEnv* env;
    ~LocalFrame() { env->PopLocalFrame(nullptr); }
};

jclass findLoaderClass(IVelkoAndroidHelper& helper) {
    unsigned short* units = nullptr;
    convToShortWchar(&units, kLoaderClass);
    const std::unique_ptr<unsigned short[]> name(units);
    return helper.findClass(name.get());
}

// Makes the loader with the activity and the performer's address, and loads it.
void startJavaSide(BarcodeLibPerformerAndroidPrivate& d, IVelkoHostEx& host,
                   const BarcodeLibPerformerAndroid* performer) {
    host.configure(VelkoConfigureAndroidServices);
    d.helper = static_cast<IVelkoAndroidHelper*>(host.queryInterface(VelkoInterfaceAndroidHelper));
    if (!d.helper) {
        return;
    }
    jclass localClass = findLoaderClass(*d.helper);
    if (!localClass) {
        return;
    }
    JNIEnv* env = getJniEnv();
    if (!env) {
        return;
    }
    d.loaderClass = static_cast<jclass>(env->NewGlobalRef(localClass));
    env->DeleteLocalRef(localClass);
    if (!d.loaderClass) {
        return;
    }

    // The VM may make references of its own on the way, such as the half-built object of a
    // constructor that threw; on a thread that never returns to Java they would stay for good.
    if (env->PushLocalFrame(kLocalReferences) != JNI_OK) {
        clearJavaException(env);
        return;
    }
    const LocalFrame frame{env};

    jobject activity = d.helper->getActivity();
    jobject object = nullptr;
    if (jmethodID constructor = env->GetMethodID(d.loaderClass, "<init>", kLoaderConstructor)) {
        // Sign-extended, as a 32-bit target needs.
        const jlong self = static_cast<jlong>(reinterpret_cast<std::intptr_t>(performer));
        object = env->NewObject(d.loaderClass, constructor, activity, self);
    }
    clearJavaException(env);
    if (activity) {
        env->DeleteLocalRef(activity);
    }
    if (!object) {
        return;
    }
    d.loaderObject = env->NewGlobalRef(object);
    env->DeleteLocalRef(object);

    if (jmethodID load = env->GetMethodID(d.loaderClass, "load", "()V")) {
        env->CallVoidMethod(d.loaderObject, load);
    }
    clearJavaException(env);
}

}  // namespace

BarcodeLibPerformerAndroid::BarcodeLibPerformerAndroid(IVelkoHostEx* host)
    : d(std::make_shared<BarcodeLibPerformerAndroidPrivate>()) {
    if (!host) {
        return;
    }
    d->host = host;
    startJavaSide(*d, *host, this);
    PerformerSlot& slot = performerSlot();
    const std::lock_guard<std::mutex> lock(slot.mutex);
    if (!slot.taken) {
        slot.taken = true;
        g_androidAppPerformer = this;
    }
}

BarcodeLibPerformerAndroid::~BarcodeLibPerformerAndroid() {
    {
        const std::lock_guard<std::mutex> lock(performerSlot().mutex);
        if (g_androidAppPerformer == this) {
            g_androidAppPerformer = nullptr;
        }
    }
    if (!d->loaderClass && !d->loaderObject) {
        return;
    }
    if (JNIEnv* env = getJniEnv()) {
        if (d->loaderObject) {
            env->DeleteGlobalRef(d->loaderObject);
        }
        if (d->loaderClass) {
            env->DeleteGlobalRef(d->loaderClass);
        }
    }
    d->loaderObject = nullptr;
    d->loaderClass = nullptr;
}

long BarcodeLibPerformerAndroid::OpenDevice() {
    return 0;
}

long BarcodeLibPerformerAndroid::CloseDevice() {
    return 0;
}

long BarcodeLibPerformerAndroid::TestDevice() {
    return 0;
}

std::wstring BarcodeLibPerformerAndroid::GetLastError(bool) {
    return std::wstring();
}
