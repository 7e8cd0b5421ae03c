// Bitmap text: a textured quad per glyph from the interface sheet (or a language's sheet),
// strings with word wrap, and numbers in fixed mono-spaced fields.
#include "render/ogl.h"
#include "render/glyph_tables.h"
#include "core/HL_TYPES.h"
#include "core/files.h"
#include <GL/gl.h>
#include <cmath>
#include <cstring>

namespace {

constexpr float texel = 0.001953125f;   // the sheets are taken as 512 texels each way

// x and y offset by the sub-window and rounded to whole pixels, half away from zero; the
// cell's foot 2 below the baseline.
void place(float* x, float* y)
{
	*x = std::round(*x + mnw.win_x);
	*y = std::round(*y + mnw.win_y) - 2.0f;
}

void glyph_quad(const charset_spec& cs, int index, float x, float y)
{
	const float s = (float)(cs.s0 + index % cs.per_row * cs.ds) * texel, t = (float)(cs.t0 + index / cs.per_row * cs.dt) * texel;
	const float ds = cs.ds * texel, dt = cs.dt * texel;
	const float grow = ins_size > 1.0f ? ins_size : 1.0f;
	const float w = cs.ds * grow, h = cs.dt * grow;
	glTexCoord2f(s, t); glVertex2f(x, y);
	glTexCoord2f(s, t + dt); glVertex2f(x, y + h);
	glTexCoord2f(s + ds, t + dt); glVertex2f(x + w, y + h);
	glTexCoord2f(s + ds, t); glVertex2f(x + w, y);
}

bool is_break(char c) { return c == 0 || c == ' ' || c == '-' || c == '/' || c == ':'; }

const charset_spec* checked(int charset)
{
	const charset_spec* cs = charset_of(charset);
	if (!cs) NB_ALERT("String proc with bad charset!", "", "", "", alert_notice);
	return cs;
}

}  // namespace

void OGL_strtex(int color, float alpha, int charset)
{
	const charset_spec* cs = checked(charset);
	if (!cs) return;
	OGL_setstate(st_fog_off, 1, st_unlit, st_blend, st_no_depth_read, st_no_depth_write);
	OGL_bind(cs->tex, 0);
	OGL_setcolorINDEX(color, alpha);
}

float OGL_string_width(const std::string& s, int charset)
{
	const charset_spec* cs = charset_of(charset);
	if (!cs) return 0.0f;
	if (charset == 103) return (float)(s.size() / 2 * cs->pitch);
	float w = 0.0f;
	for (unsigned char c : s) w += cs->pitch ? (glyph_index(c) >= 0 ? cs->pitch : 0) : glyph_advance(c);
	return w;
}

void OGL_string(int color, float x, float y, const std::string& s, float dx, int charset)
{
	const charset_spec* cs = checked(charset);
	if (!cs) return;
	OGL_strtex(color, 1.0f, charset);
	place(&x, &y);
	const bool wrap = dx < 9999.0f;
	float pen = x;
	glBegin(GL_QUADS);
	for (size_t i = 0; i < s.size(); i++) {
		const unsigned char c = (unsigned char)s[i];
		if (charset == 103) {   // two bytes a character
			if (i + 1 >= s.size() || c == 0 || s[i + 1] == 0) break;
			const int index = (c - 1) * 127 + ((unsigned char)s[i + 1] - 1);
			glyph_quad(*cs, index, pen, y);
			pen += cs->pitch;
			i++;
			continue;
		}
		if (c == 10) {
			pen = x;
			y -= 10.0f;
			continue;
		}
		if (c == 13 || c == 9) continue;
		const int index = glyph_index(c);
		if (index < 0) continue;   // not in the table: no width, nothing drawn
		if (index > 0) glyph_quad(*cs, index, pen, y);
		pen += cs->pitch ? cs->pitch : glyph_advance(c);
		if (wrap && is_break((char)c)) {   // will the next word fit?
			size_t n = i + 1;
			while (n < s.size() && !is_break(s[n]) && s[n] != 10) n++;
			if (x + dx < pen + 6.0f * (float)(n - i - 1)) {
				pen = x;
				y -= 10.0f;
			}
		}
	}
	glEnd();
}

void OGL_number(int color, float x, float y, float input, int dig, int dec, int charset)
{
	if (charset != 101 && charset != 102) {
		NB_ALERT("Numbers must be mono-spaced!", "This is because we increment by a constant step size for each digit.", "", "",
		         alert_notice);
		return;
	}
	const charset_spec& cs = *charset_of(charset);
	const float p = (float)cs.pitch;
	OGL_strtex(color, 1.0f, charset);
	place(&x, &y);
	if (!std::isfinite(input)) input = 0.0f;
	dig = dig < 1 ? 1 : dig > 11 ? 11 : dig;
	dec = dec < 0 ? 0 : dec > dig ? dig : dec;
	const bool negative = input < 0.0f;
	double fnum = std::fabs((double)input) * std::pow(10.0, dec);
	int digits = 1;
	for (double lim = 9.0; digits < 10 && fnum > lim; lim = lim * 10.0 + 9.0) digits++;
	glBegin(GL_QUADS);
	if (negative && fnum + 0.5 >= 1.0) glyph_quad(cs, glyph_index('-'), x, y);   // nothing that shows as zero takes a sign
	float pen = x;   // the digits start one pitch after the sign's place
	auto digit = [&](long long d) {
		pen += p;
		glyph_quad(cs, glyph_index((unsigned char)('0' + (d >= 0 && d <= 9 ? d : 0))), pen, y);
	};
	if (digits > dig) {   // too long for the field: three digits, 'x' and the power of ten
		int exponent = 0;
		while (fnum >= 999.0 && exponent < 9) {
			fnum /= 10.0;
			exponent++;
		}
		const long long m = (long long)std::llround(std::fmin(fnum, 999.0));
		digit(m / 100 % 10);
		digit(m / 10 % 10);
		digit(m % 10);
		pen += p;
		glyph_quad(cs, glyph_index('x'), pen, y);
		digit(exponent);
	} else {
		const long long inum = (long long)(fnum + 0.5);
		const int whole = dig - dec;
		if (dec > 0) glyph_quad(cs, glyph_index('.'), x + (whole + 0.5f) * p, y);
		for (int group = 3; group <= 9; group += 3)
			if (whole >= group + 1) glyph_quad(cs, glyph_index(','), x + (whole - group + 0.5f) * p, y);
		long long place_value = 1;
		for (int k = 1; k < dig; k++) place_value *= 10;
		for (int k = dig; k >= 1; k--) {   // every place of the field: leading zeros show
			digit(inum / place_value % 10);
			place_value /= 10;
		}
	}
	glEnd();
}
