// nimbara-fly's commands.
#pragma once

int fly_run(int argc, char** argv);   // argv[0] is "run"
