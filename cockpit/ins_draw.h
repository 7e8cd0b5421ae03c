// Drawing inside an instrument: its centre is the origin, lengths are the art's pixels and
// scale with the slot's size. Textures are the slot's layers 1 to 4; texture coordinates are
// given in the art's pixels, from its lower left corner.
#pragma once

int ins_layer_tex(int layer);    // the slot's texture id of layer 1..4
bool ins_layer_ok(int layer);    // its art is loaded
float ins_layer_dx(int layer);   // the art's width and height in pixels, 0 without art
float ins_layer_dy(int layer);
// Binds a layer for quads in the given colour (instrument light when lit); false without art.
bool ins_bind(int layer, int lit);
// One quad of the bound layer, centred at (cx, cy), turned clockwise by ang degrees, half
// sizes hw, hh, showing the art's pixels s1..s2, t1..t2. Between glBegin(GL_QUADS) and glEnd.
void ins_emit_quad(int layer, float cx, float cy, float ang, float hw, float hh, float s1, float t1, float s2, float t2);
// A coloured band between radii r1 and r2 from angle a1 to a2 (degrees clockwise from up).
void ins_arc(float xc, float yc, float r1, float r2, float a1, float a2, int color, float alpha);
// The scissor box round the instrument's centre, half sizes hw, hh.
void ins_clip(float hw, float hh);
