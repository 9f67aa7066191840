#!/bin/sh
# The library shows the host its four entry points and nothing else; a build with the JNI glue
# (second argument 1) adds the two JNI entry points and the first performer. A hardened build
# (third argument 1) is bound at load and has a stack protector, and checked libc calls unless
# a sanitizer build left them out (fourth argument 0).
names() { tr ' ' '\n' | grep . | LC_ALL=C sort | tr '\n' ' '; }
actual=$(nm -D --defined-only "$1" | awk '{print $3}' | names)
expected="DestroyObject GetClassNames GetClassObject SetPlatformCapabilities"
[ "${2:-0}" = 1 ] && expected="$expected JNI_OnLoad JNI_OnUnload g_androidAppPerformer"
expected=$(echo "$expected" | names)
[ "$actual" = "$expected" ] || { echo "exported: $actual"; echo "expected: $expected"; exit 1; }
# Fonts, Data Matrix, logos and the log are opened when first used, not at load.
deferred=$(readelf -d "$1" | grep NEEDED | grep -E 'freetype|fontconfig|dmtx|lodepng|liblog')
[ -z "$deferred" ] || { echo "loaded with the library: $deferred"; exit 1; }
[ "${3:-1}" = 1 ] || exit 0
readelf -d "$1" | grep -q BIND_NOW || { echo "not bound at load"; exit 1; }
imported=$(nm -D --undefined-only "$1")
echo "$imported" | grep -q __stack_chk_fail || { echo "no stack protector"; exit 1; }
[ "${4:-1}" = 0 ] || echo "$imported" | grep -v __stack_chk | grep -q '__[a-z0-9_]*_chk' ||
    { echo "no checked libc calls"; exit 1; }
