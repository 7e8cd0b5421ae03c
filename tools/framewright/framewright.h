// framewright: the aircraft and airfoil designer on the command line.
#pragma once

int framewright_airfoil(int argc, char** argv);   // argv[0] is "airfoil"
int framewright_build(int argc, char** argv);     // argv[0] is "build"
int framewright_dump(int argc, char** argv);
int framewright_check(int argc, char** argv);
int framewright_art(int argc, char** argv);       // the cockpit's pictures
