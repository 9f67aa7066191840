#include <cstddef>
#include <cstdint>
