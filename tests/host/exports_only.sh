#!/bin/sh
# The library shows the host its four entry points and nothing else; a build with the JNI glue
# (second argument 1) adds the two JNI entry points, the first performer, and the performer's
# class for a caller that makes one. A hardened build (third argument 1) is bound at load and
# has a stack protector, and checked libc calls unless a sanitizer build left them out (fourth
# argument 0).
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
# Fonts, Data Matrix, logos and the log are opened when first used, not at load.
deferred=$(readelf -d "$1" | grep NEEDED | grep -E 'freetype|fontconfig|dmtx|lodepng|liblog')
[ -z "$deferred" ] || { echo "loaded with the library: $deferred"; exit 1; }
[ "${3:-1}" = 1 ] || exit 0
readelf -d "$1" | grep -q BIND_NOW || { echo "not bound at load"; exit 1; }
imported=$(nm -D --undefined-only "$1")
echo "$imported" | grep -q __stack_chk_fail || { echo "no stack protector"; exit 1; }
[ "${4:-1}" = 0 ] || echo "$imported" | grep -v __stack_chk | grep -q '__[a-z0-9_]*_chk' ||
    { echo "no checked libc calls"; exit 1; }
