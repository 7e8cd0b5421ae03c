// Everything drawn reaches OpenGL through here: the one state setter, the colour table with
// its lighting and night vision, the 1024 x 768 panel space inside any window, the 2-D and
// 3-D primitives, the bitmap fonts and numbers, the panel plate and screenshots.
#pragma once
#include <string>

// OGL_setstate's symbolic arguments.
enum {
	st_fog_on = 0, st_fog_off = 1, st_lit = 2, st_unlit = 3, st_opaque = 4, st_blend = 5, st_alpha_test = 6, st_blend_test = 7,
	st_depth_read = 8, st_no_depth_read = 9, st_depth_write = 10, st_no_depth_write = 11
};

extern float col_rgb[94][3];
extern float r_manual_lighting, g_manual_lighting, b_manual_lighting;
extern int num_texes;
extern int o_tex[4];
extern float ins_size;   // scale of the instrument being drawn; 1 outside instruments

void OGL_setstate(int fog, int tex_units, int lit, int alpha, int depth_read, int depth_write);
void OGL_bind(int tex, int unit);
void OGL_setcolorINDEX(int color, float alpha);
void OGL_setcolorRGBA(float r, float g, float b, float a, int unlit);
void OGL_spectrum_rgb(float rat);
void OGL_assigncolor(int index, float r, float g, float b);
void OGL_setspec(float spec);
void OGL_poly_offset(float amount);
void OGL_scissors(float x, float y, float dx, float dy);
void OGL_scissors_end();
void set_lit_ins(int mode);
void OGL_assign_start_colours();   // the fixed table, then the interface colours once the sheet is in
void OGL_sample_interface_colours(const unsigned char* sheet_rgba, int width, int height);
void OGL_load_interface();         // interface.png into 468 and colours 28 to 41 from it

void OGL_set_panel_space(int x_res, int y_res);   // the window's size: scale, margins, extents
void OGL_viewport(int mode, float rat_x1, float rat_y1, float rat_x2, float rat_y2, float pix_x1, float pix_y1, float pix_x2,
                  float pix_y2, float near_clip, float far_clip, float zoom);

void OGL_line(int color, float alpha, float x1, float y1, float x2, float y2);
void OGL_fillrect(int color, float alpha, float x, float y, float dx, float dy);
void OGL_framerect(int color, float alpha, float x, float y, float dx, float dy);
void OGL_framecircle(int color, float x, float y, float r);
void OGL_grayrect(float x1, float y1, float x2, float y2, float rat);
void OGL_2dquad(int tex, int col, float alp, float x1, float y1, float s1, float t1, float x2, float y2, float s2, float t2, float x3,
                float y3, float s3, float t3, float x4, float y4, float s4, float t4, int num_tex, int alB);
void gray_string(int color, float x, float y, const std::string& s);

void OGL_3dline(const float a[3], const float b[3]);
void OGL_3dquad(const float p1[3], const float p2[3], const float p3[3], const float p4[3]);
void OGL_3dquad_st(const float p1[3], const float p2[3], const float p3[3], const float p4[3], float s1, float s2, float t1, float t2);
void OGL_3dquad_range(const float p1[3], const float p2[3], const float p3[3], const float p4[3], float xmin, float zmin, float xrange,
                      float zrange, float s1, float s2, float t1, float t2);
void OGL_cube(float x, float y, float z, float dx, float dy, float dz, float s1, float s2, float t1, float t2, float the);
void OGL_disc(float xc, float yc, float zc, float xh, float xt, float rh, float rt, float steer, float rotation);

void OGL_strtex(int color, float alpha, int charset);
float OGL_string_width(const std::string& s, int charset);   // the logical width the string advances
void OGL_string(int color, float x, float y, const std::string& s, float dx, int charset);
void OGL_number(int color, float x, float y, float input, int dig, int dec, int charset);

void OGL_screenshot();
