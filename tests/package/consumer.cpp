#include <vexmath/mg_vector.h>

int main() { return mg_AngleBetween(mgVector_c(1, 0, 0), mgVector_c(2, 0, 0)) == 0.0 ? 0 : 1; }
