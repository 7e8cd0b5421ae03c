// The plug-in manager's entry points used by the core.
#pragma once

int NBPGetNumberPlanesToHandle(int inMaxPossible, int inLoading);
void NBPShutdownPlugins();
