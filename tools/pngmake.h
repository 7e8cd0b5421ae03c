// The image pngmake draws into, shared by its drawing operations.
#pragma once
#include <cstdint>
#include <istream>
#include <string>
#include <vector>

namespace pm {
extern int w, h;
extern std::vector<unsigned char> px;   // RGBA, rows from the top
void put(int x, int y, const int c[4]);   // y from the top; outside the image nothing
extern int frame_number;   // an animation's frame, from the command line
// A procedural shape (glow, disc, moon, aurora, noise): 1 drawn, 0 a bad line with the
// reason, -1 not a shape.
int shape_op(const std::string& op, std::istream& args, std::string* why);
// Smooth value noise 0..1 that wraps every px lattice cells across and py down.
double wrap_noise(double x, double y, int px, int py, uint32_t seed);
// Border masks and the lamps' and the sun's light on the ground: 1 drawn, 0 a bad line, -1
// not one of these.
int ground_light_op(const std::string& op, std::istream& args, std::string* why);
}  // namespace pm
