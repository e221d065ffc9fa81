#include <vexmath/vexmath.h>

#include <cstdio>

int main() {
    mgBBox_c box(mgPoint_c(), 1.0);
    box *= mg_TranslateXform(mgVector_c(1, 2, 3));
    suDynamicArray<mgPoint_c> corners;
    corners.Add(box.low());
    corners.Add(box.high());
    bool const hasSets = uo_GenSelEDGES.getNumOfTypes() == 1;
    bool const right = corners.Count() == 2 && corners[1].z() == 4.0 && hasSets;
    if (!right) std::puts("the library gave a wrong answer");
    return right ? 0 : 1;
}
