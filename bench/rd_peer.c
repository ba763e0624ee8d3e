/* The conversion's bare arithmetic, as one would write it in C for a whole table: the steps that both results
 * share are done once for each point. */
#include "rd_peer.h"

void convertRdTable(const double* x, const double* y, double* lat, double* lon, size_t count) {
    for (size_t i = 0; i < count; ++i) {
        const double dX = (x[i] - 155000) * 0.00001;
        const double dY = (y[i] - 463000) * 0.00001;
        const double dX2 = dX * dX, dX3 = dX * dX * dX, dX4 = dX * dX * dX * dX, dX5 = dX * dX * dX * dX * dX;
        const double dY2 = dY * dY, dY3 = dY * dY * dY, dY4 = dY * dY * dY * dY, dY5 = dY * dY * dY * dY * dY;
        const double phi =
            (dY * 3236.0331637 + dX2 * -32.5915821 + dY2 * -0.2472814 + dX2 * -0.8501341 * dY +
             dY3 * -0.0655238 + dX4 * 0.0052771 + dX2 * -0.0171137 * dY2 + dY4 * 0.0000371 +
             dX4 * 0.0003314 * dY + dX2 * -0.0003859 * dY3 + dX4 * 0.0000143 * dY2 + dX2 * -0.000009 * dY4) /
                3600 +
            52.156160556;
        const double lambda =
            (dX * 5261.3028966 + dX * 105.9780241 * dY + dX3 * -0.8192156 + dX * 2.4576469 * dY2 +
             dX3 * -0.0560092 * dY + dX * 0.0560089 * dY3 + dX5 * 0.0002574 + dX3 * -0.0025614 * dY2 +
             dX * 0.001277 * dY4 + dX5 * 0.0000293 * dY + dX3 * -0.0000973 * dY3 + dX * 0.0000291 * dY5) /
                3600 +
            5.387638889;
        const double a = 1.00011714, b = 0.00000125, c = -0.00512891, d = -0.00000329, e = 1.00014667;
        lat[i] = (1 / (a - -4.1125000000000005e-12 / e)) *
                 ((phi - (b / e) * lambda) + -2.2906250000000003e-10 / e - c);
        lon[i] = (1 / (b - 1.0002638271809237 / d)) * ((phi - (a / d) * lambda) + -0.000183271465905 / d - c);
    }
}
