// nimbara-fly's commands.
#pragma once

int fly_run(int argc, char** argv);   // argv[0] is "run"
int fly_nav(int argc, char** argv);   // argv[0] is "nav"
