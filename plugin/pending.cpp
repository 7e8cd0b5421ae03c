// Plug-in pieces that later steps build. With no manager loaded the simulator
// handles every aircraft itself.
#include "plugin/HL_PLUGIN.h"

int NBPGetNumberPlanesToHandle(int inMaxPossible, int) { return inMaxPossible; }
void NBPShutdownPlugins() {}   // plug-in host: later step
int NBPKeyPressHook(int, int) { return 1; }      // plug-in hooks: later step
int NBPDoDrawingHook(int) { return 1; }
int NBPMouseClickHook(int, int, int) { return 1; }
void NBPUpdatePlaneNameAndPath(int, const char*, const char*) {}
void NBPEventHook(int, float, int, int, int) {}
int NBPCameraHook(float*, float*, float*, float*, float*, float*, float*) { return 1; }
