#include <gtest/gtest.h>

#include <jni.h>
#include <jvmti.h>

#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "host/barcode_lib_performer_android.h"
#include "host/jni_glue.h"

// The JVM shares this process under the sanitizers: it raises SIGSEGV on purpose and keeps
// what it allocates until the end.
extern "C" __attribute__((visibility("default"))) const char* __asan_default_options() {
    return "handle_segv=0:allow_user_segv_handler=1";
}
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions() {
    // The VM's own heap, and the inflaters it keeps open on the class path's jar.
    return "leak:libjvm.so\nleak:libjava.so\nleak:libzip.so\nleak:libz.so\n";
}

namespace {

const char kLoaderClassName[] = "com.evelko.BarcodeLibNativePackage.LibLoader";

struct Jvm {
    JavaVM* vm = nullptr;
    JNIEnv* env = nullptr;  // of the thread that made the VM
    jvmtiEnv* ti = nullptr;
};

// One VM per process, as JNI allows. -Xcheck:jni reports misuse as warnings the tests look for.
const Jvm& jvm() {
    static const Jvm made = [] {
        Jvm j;
        std::string classPath = std::string("-Djava.class.path=") + VELKO_TEST_CLASS_PATH;
        JavaVMOption options[] = {{classPath.data(), nullptr},
                                  {const_cast<char*>("-Xcheck:jni"), nullptr}};
        JavaVMInitArgs args{JNI_VERSION_1_8, 2, options, JNI_FALSE};
        if (JNI_CreateJavaVM(&j.vm, reinterpret_cast<void**>(&j.env), &args) != JNI_OK) {
            return Jvm{};
        }
        jvmtiCapabilities wanted{};
        wanted.can_tag_objects = 1;
        if (j.vm->GetEnv(reinterpret_cast<void**>(&j.ti), JVMTI_VERSION_1_2) != JNI_OK ||
            j.ti->AddCapabilities(&wanted) != JVMTI_ERROR_NONE) {
            j.ti = nullptr;
        }
        return j;
    }();
    return made;
}

// The VM's own count of JNI references, global and local, from a walk over its roots.
std::pair<int, int> jniRoots() {
    jvmtiHeapCallbacks callbacks{};
    callbacks.heap_reference_callback = [](jvmtiHeapReferenceKind kind,
                                           const jvmtiHeapReferenceInfo*, jlong, jlong, jlong,
                                           jlong*, jlong*, jint, void* data) -> jint {
        auto& roots = *static_cast<std::pair<int, int>*>(data);
        roots.first += kind == JVMTI_HEAP_REFERENCE_JNI_GLOBAL;
        roots.second += kind == JVMTI_HEAP_REFERENCE_JNI_LOCAL;
        return 0;  // no further than the roots
    };
    std::pair<int, int> roots;
    jvm().ti->FollowReferences(0, nullptr, nullptr, &callbacks, &roots);
    return roots;
}

// The host's Android services over the test's VM; it finds classes with the VM's class path.
class AndroidHost : public IVelkoHostEx, public IVelkoAndroidHelper {
public:
    AndroidHost(JNIEnv* env, bool hasHelper, bool findsLoader)
        : env(env), hasHelper(hasHelper), findsLoader(findsLoader) {
        jclass type = env->FindClass("android/app/Activity");
        jmethodID make = env->GetMethodID(type, "<init>", "(Ljava/lang/String;)V");
        activity = env->NewGlobalRef(env->NewObject(type, make, env->NewStringUTF("main")));
    }
    ~AndroidHost() { env->DeleteGlobalRef(activity); }

    bool reportError(unsigned short, const unsigned short*, const unsigned short*, long) override {
        return false;
    }
    bool configure(long) override { return true; }
    void* queryInterface(long id) override {
        return hasHelper && id == VelkoInterfaceAndroidHelper
                   ? static_cast<IVelkoAndroidHelper*>(this)
                   : nullptr;
    }
    jobject getActivity() override { return env->NewLocalRef(activity); }
    jclass findClass(const unsigned short* name) override {
        std::string path;
        for (; *name; ++name) {
            asked += static_cast<char>(*name);
            path += *name == '.' ? '/' : static_cast<char>(*name);
        }
        return findsLoader ? env->FindClass(path.c_str()) : nullptr;
    }

    JNIEnv* env;
    bool hasHelper, findsLoader;
    jobject activity;
    std::string asked;
};

class JniGlueTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_NE(jvm().vm, nullptr) << "no JVM could be made";
        ASSERT_NE(jvm().ti, nullptr) << "no JVMTI with object tagging";
        ASSERT_EQ(JNI_OnLoad(jvm().vm, nullptr), 0x10006);
        // The test's own local references die with this frame.
        ASSERT_EQ(env->PushLocalFrame(64), JNI_OK);
        loader = env->FindClass("com/evelko/BarcodeLibNativePackage/LibLoader");
        ASSERT_NE(loader, nullptr);
        last =
            env->GetStaticFieldID(loader, "last", "Lcom/evelko/BarcodeLibNativePackage/LibLoader;");
        env->SetStaticObjectField(loader, last, nullptr);
    }
    void TearDown() override {
        EXPECT_FALSE(env->ExceptionCheck());
        env->PopLocalFrame(nullptr);
        EXPECT_EQ(g_androidAppPerformer, nullptr);
    }

    std::u16string units(jstring text) {
        std::u16string read(static_cast<std::size_t>(env->GetStringLength(text)), u'\0');
        env->GetStringRegion(text, 0, static_cast<jsize>(read.size()),
                             reinterpret_cast<jchar*>(read.data()));
        return read;
    }

    JNIEnv* env = jvm().env;
    jclass loader = nullptr;
    jfieldID last = nullptr;
};

// A VM that records what it is asked and answers as a row says.
struct FakeVm {
    static inline jint getEnvAnswer, attachAnswer;
    static inline std::string calls;

    FakeVm() {
        functions.GetEnv = [](JavaVM*, void** env, jint version) {
            calls += "GetEnv(" + std::to_string(version) + ") ";
            *env = reinterpret_cast<void*>(0x1000);
            return getEnvAnswer;
        };
        functions.AttachCurrentThreadAsDaemon = [](JavaVM*, void** env, void* args) {
            const auto& attach = *static_cast<JavaVMAttachArgs*>(args);
            calls += "AttachDaemon(" + std::to_string(attach.version) +
                     (attach.name || attach.group ? ", named) " : ") ");
            *env = reinterpret_cast<void*>(0x2000);
            return attachAnswer;
        };
        vm.functions = &functions;
    }

    JNIInvokeInterface_ functions{};
    JavaVM vm{};
};

TEST(JniEnvironment, AttachesOnlyADetachedThread) {
    struct Row {
        jint getEnv, attach;
        std::uintptr_t env;
        const char* calls;
    } rows[] = {
        {JNI_OK, JNI_ERR, 0x1000, "GetEnv(65542) "},
        {JNI_EDETACHED, JNI_OK, 0x2000, "GetEnv(65542) AttachDaemon(65542) "},
        {JNI_EDETACHED, JNI_ERR, 0, "GetEnv(65542) AttachDaemon(65542) "},
        {JNI_EVERSION, JNI_OK, 0, "GetEnv(65542) "},
        {JNI_ERR, JNI_OK, 0, "GetEnv(65542) "},
    };
    FakeVm fake;
    EXPECT_EQ(JNI_OnLoad(&fake.vm, nullptr), 0x10006);
    for (const Row& row : rows) {
        FakeVm::getEnvAnswer = row.getEnv;
        FakeVm::attachAnswer = row.attach;
        FakeVm::calls.clear();
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(getJniEnv()), row.env) << row.getEnv;
        EXPECT_EQ(FakeVm::calls, row.calls);
    }

    // Neither a performer without a host nor anything after unloading asks the VM.
    FakeVm::calls.clear();
    BarcodeLibPerformerAndroid(nullptr).OpenDevice();
    EXPECT_EQ(g_androidAppPerformer, nullptr);
    JNI_OnUnload(&fake.vm, nullptr);
    EXPECT_EQ(getJniEnv(), nullptr);
    EXPECT_EQ(FakeVm::calls, "");
}

TEST_F(JniGlueTest, NewNativeThreadIsAttachedAsDaemon) {
    std::thread([] {
        void* none = nullptr;
        ASSERT_EQ(jvm().vm->GetEnv(&none, JNI_VERSION_1_6), JNI_EDETACHED);
        JNIEnv* attached = getJniEnv();
        ASSERT_NE(attached, nullptr);
        EXPECT_EQ(getJniEnv(), attached);
        jclass thread = attached->FindClass("java/lang/Thread");
        jmethodID current =
            attached->GetStaticMethodID(thread, "currentThread", "()Ljava/lang/Thread;");
        jmethodID isDaemon = attached->GetMethodID(thread, "isDaemon", "()Z");
        jobject running = attached->CallStaticObjectMethod(thread, current);
        ASSERT_FALSE(attached->ExceptionCheck());
        EXPECT_TRUE(attached->CallBooleanMethod(running, isDaemon));
        jvm().vm->DetachCurrentThread();
    }).join();
}

TEST_F(JniGlueTest, TextAndBytesRoundTripUnitForUnit) {
    std::u16string many(100000, u'\0');
    for (std::size_t i = 0; i < many.size(); ++i) {
        many[i] = static_cast<char16_t>(i % 0xFFFF + 1);  // every unit but the terminator
    }
    for (const std::u16string& text : {std::u16string(), std::u16string(u"Штрих-код 128"),
                                       std::u16string(u"\U0001F600"), many}) {
        jstring java = env->NewString(reinterpret_cast<const jchar*>(text.data()),
                                      static_cast<jsize>(text.size()));
        const std::wstring wide = Java_To_WStr(env, java);
        EXPECT_EQ(wide, std::wstring(text.begin(), text.end())) << text.size();
        EXPECT_EQ(units(WStr_To_Java(env, wide)), text);
        std::vector<unsigned short> host(text.begin(), text.end());
        host.push_back(0);
        // The environment comes from getJniEnv(), whatever the caller passes.
        EXPECT_EQ(units(WCHARp_To_Java(nullptr, host.data())), text);
    }
    EXPECT_EQ(Java_To_WStr(env, nullptr), L"");
    EXPECT_EQ(WCHARp_To_Java(env, nullptr), nullptr);

    std::string everyByte(512, '\0');
    for (std::size_t i = 0; i < everyByte.size(); ++i) {
        everyByte[i] = static_cast<char>(i);
    }
    for (const std::string& bytes : {std::string(), everyByte}) {
        jbyteArray array = Str_To_JavaByteArray(env, bytes);
        ASSERT_NE(array, nullptr);
        std::string read(static_cast<std::size_t>(env->GetArrayLength(array)), '\0');
        env->GetByteArrayRegion(array, 0, static_cast<jsize>(read.size()),
                                reinterpret_cast<jbyte*>(read.data()));
        EXPECT_EQ(read, bytes);
    }
}

// What the performer asks of its host and does as a device: performer_caller_test.cpp.
TEST_F(JniGlueTest, PerformerWithoutTheJavaSideLeavesNoReference) {
    for (const bool hasHelper : {false, true}) {
        AndroidHost host(env, hasHelper, false);
        const auto before = jniRoots();
        auto first = std::make_unique<BarcodeLibPerformerAndroid>(&host);
        BarcodeLibPerformerAndroid second(&host);
        EXPECT_EQ(host.asked.size(), hasHelper ? 2 * std::strlen(kLoaderClassName) : 0);
        EXPECT_EQ(jniRoots(), before);
        first.reset();
        EXPECT_EQ(g_androidAppPerformer, nullptr) << "no pointer to a performer that is gone";
    }
    EXPECT_EQ(env->GetStaticObjectField(loader, last), nullptr);
}

// The loader is made with the activity and the performer's address and loaded; one that throws
// is described and cleared. Either way the performer leaves no JNI reference behind.
TEST_F(JniGlueTest, PerformerStartsTheLoaderAndReleasesItsReferences) {
    const jfieldID refuse = env->GetStaticFieldID(loader, "refuse", "Z");
    for (const bool refused : {false, true}) {
        AndroidHost host(env, true, true);
        env->SetStaticBooleanField(loader, refuse, refused);
        env->SetStaticObjectField(loader, last, nullptr);
        const auto before = jniRoots();
        ::testing::internal::CaptureStderr();
        auto performer = std::make_unique<BarcodeLibPerformerAndroid>(&host);
        const bool pending = env->ExceptionCheck();
        const auto address = static_cast<jlong>(reinterpret_cast<std::intptr_t>(performer.get()));
        const auto running = jniRoots();
        performer.reset();
        const std::string log = ::testing::internal::GetCapturedStderr();
        env->SetStaticBooleanField(loader, refuse, false);

        EXPECT_FALSE(pending);
        EXPECT_EQ(host.asked, kLoaderClassName);
        EXPECT_EQ(running, std::make_pair(before.first + (refused ? 1 : 2), before.second))
            << "the class and the loader, and no local reference";
        EXPECT_EQ(jniRoots(), before);
        EXPECT_EQ(log.find("WARNING"), std::string::npos) << log;
        EXPECT_EQ(log.find("LibLoader refused") != std::string::npos, refused) << log;

        jobject made = env->GetStaticObjectField(loader, last);
        ASSERT_EQ(made == nullptr, refused);
        if (!refused) {
            const jfieldID activity = env->GetFieldID(loader, "activity", "Landroid/app/Activity;");
            EXPECT_TRUE(env->IsSameObject(env->GetObjectField(made, activity), host.activity));
            EXPECT_EQ(env->GetLongField(made, env->GetFieldID(loader, "performer", "J")), address);
            EXPECT_TRUE(env->GetBooleanField(made, env->GetFieldID(loader, "loaded", "Z")));
        }
    }
}

// The library itself, loaded as Java loads a JNI library.
TEST_F(JniGlueTest, SystemLoadRunsTheLibrarysOnLoad) {
    jclass system = env->FindClass("java/lang/System");
    jmethodID load = env->GetStaticMethodID(system, "load", "(Ljava/lang/String;)V");
    ::testing::internal::CaptureStderr();
    env->CallStaticVoidMethod(system, load, env->NewStringUTF(VELKO_EXTENSION_PATH));
    const bool failed = env->ExceptionCheck();
    const std::string log = ::testing::internal::GetCapturedStderr();
    if (failed) {
        env->ExceptionDescribe();
    }
    ASSERT_FALSE(failed) << "an unknown JNI version or a missing library";
    EXPECT_NE(log.find("BarcodeLib"), std::string::npos) << log;
    EXPECT_NE(log.find("JNI_OnLoad()"), std::string::npos) << log;
}

}  // namespace
