#!/bin/sh
# The library shows the host its four entry points and nothing else; a build with the JNI glue
# (second argument 1) adds the two JNI entry points and the first performer.
names() { tr ' ' '\n' | grep . | LC_ALL=C sort | tr '\n' ' '; }
actual=$(nm -D --defined-only "$1" | awk '{print $3}' | names)
expected="DestroyObject GetClassNames GetClassObject SetPlatformCapabilities"
[ "${2:-0}" = 1 ] && expected="$expected JNI_OnLoad JNI_OnUnload g_androidAppPerformer"
expected=$(echo "$expected" | names)
[ "$actual" = "$expected" ] || { echo "exported: $actual"; echo "expected: $expected"; exit 1; }
