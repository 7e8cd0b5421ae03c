// The simulator's entry: no command line, no environment.
#include "core/HL_MAIN.h"

int main() { return WinMain(); }
