#pragma once

#include <jni.h>

#include <string>

// The library's side of the Java virtual machine: the VM pointer that JNI_OnLoad keeps, an
// environment for the calling thread, and text between Java and the library's forms.

// JNI 1.6, the version the library asks for and answers with.
constexpr jint kVelkoJniVersion = JNI_VERSION_1_6;

// The environment of the calling thread, attaching it as a daemon when it isn't attached yet.
// Null before JNI_OnLoad, after JNI_OnUnload, and when the VM refuses.
JNIEnv* getJniEnv();

// One wide character per 16-bit unit: a surrogate pair stays two characters.
std::wstring Java_To_WStr(JNIEnv* env, jstring text);
// A new string of the units up to the terminator, made in the environment of getJniEnv().
jstring WCHARp_To_Java(JNIEnv* env, unsigned short* text);
jstring WStr_To_Java(JNIEnv* env, std::wstring text);
jbyteArray Str_To_JavaByteArray(JNIEnv* env, std::string bytes);
