#!/bin/sh
# The library shows the host its four entry points and nothing else.
actual=$(nm -D --defined-only "$1" | awk '{print $3}' | sort | tr '\n' ' ')
expected="DestroyObject GetClassNames GetClassObject SetPlatformCapabilities "
[ "$actual" = "$expected" ] || { echo "exported: $actual"; exit 1; }
