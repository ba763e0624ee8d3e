#pragma once

#include <stddef.h>

#ifdef __cplusplus
extern "C"
#endif
    void
    convertRdTable(const double* x, const double* y, double* lat, double* lon, size_t count);
