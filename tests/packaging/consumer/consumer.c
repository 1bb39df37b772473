/* An outside program that calls image functions only: it links
 * libzorccpx alone, and libzorccpx must find libzorcore by itself. */
#include <stdio.h>
#include <string.h>
#include <zorcc.h>

int main(void) {
    const ZorLibraryVersion* v = zorccGetLibVersion();
    Zor8u rgb[3] = {255, 0, 0}, ycc[3] = {0, 0, 0};
    ZoriSize one = {1, 1};
    if (v == NULL || strcmp(v->versionText, "5.1.1") != 0) return 1;
    if (zoriRGBToYCbCr_8u_C3R(rgb, 3, ycc, 3, one) != zorStsOk) return 2;
    if (ycc[0] != 82 || ycc[1] != 90 || ycc[2] != 240) return 3;
    printf("zorcc %s: red is Y=%d Cb=%d Cr=%d\n", v->versionText, ycc[0], ycc[1], ycc[2]);
    return 0;
}
