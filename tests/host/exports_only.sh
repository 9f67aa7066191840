#!/bin/sh
# The library shows the host its four entry points and nothing else; a build with the JNI glue
# (second argument 1) adds the two JNI entry points, the first performer, and the performer's
# class for a caller that makes one.
actual=$(nm -D --defined-only "$1" | awk '{print $3}' | c++filt | LC_ALL=C sort -u)
expected="DestroyObject GetClassNames GetClassObject SetPlatformCapabilities"
performer="JNI_OnLoad
JNI_OnUnload
g_androidAppPerformer
BarcodeLibPerformerAndroid::BarcodeLibPerformerAndroid(IVelkoHostEx*)
BarcodeLibPerformerAndroid::~BarcodeLibPerformerAndroid()
BarcodeLibPerformerAndroid::OpenDevice()
BarcodeLibPerformerAndroid::CloseDevice()
BarcodeLibPerformerAndroid::TestDevice()
BarcodeLibPerformerAndroid::GetLastError[abi:cxx11](bool)
vtable for BarcodeLibPerformerAndroid
typeinfo for BarcodeLibPerformerAndroid
typeinfo name for BarcodeLibPerformerAndroid
typeinfo for BarcodeLibPerformerBase
typeinfo name for BarcodeLibPerformerBase"
expected=$(echo "$expected" | tr ' ' '\n')
[ "${2:-0}" = 1 ] && expected="$expected
$performer"
expected=$(echo "$expected" | LC_ALL=C sort -u)
[ "$actual" = "$expected" ] || { echo "exported:"; echo "$actual"; echo "expected:"; echo "$expected"; exit 1; }
