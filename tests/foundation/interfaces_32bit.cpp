#include "host/velko_interfaces.h"

static_assert(sizeof(void*) == 4, "built for a 32-bit target");
static_assert(offsetof(VelkoVariantString, length) == 4, "length overlaps the payload");
