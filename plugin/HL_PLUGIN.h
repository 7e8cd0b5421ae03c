// The plug-in manager's entry points used by the core.
#pragma once

int NBPGetNumberPlanesToHandle(int inMaxPossible, int inLoading);
void NBPShutdownPlugins();
int NBPKeyPressHook(int vk, int down);            // 0 drops the key
int NBPDoDrawingHook(int phase);                 // 0 skips what that phase would draw
int NBPMouseClickHook(int x, int y, int down);   // 0 drops the click
void NBPUpdatePlaneNameAndPath(int p, const char* name, const char* path);
void NBPEventHook(int event, float time, int a, int p, int b);
int NBPCameraHook(float* x, float* y, float* z, float* pitch, float* heading, float* roll, float* zoom);   // 0: the manager placed the camera
