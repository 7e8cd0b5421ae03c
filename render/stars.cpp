// The stars: the catalogue read once a planet, cut into six lists by magnitude, each a
// cloud of points on a sphere round the eye in the sky's own axes, turned each frame by
// the latitude and the sidereal time.
#include "render/stars.h"
#include "render/ogl.h"
#include "core/HL_MAIN.h"
#include "core/HL_TYPES.h"
#include "core/files.h"
#include "platform/plat.h"
#include <GL/gl.h>
#include <algorithm>
#include <cmath>

star_entry stars[star_max];
int num_stars = 0;
const float star_band_mag[5] = {1.5f, 3.0f, 4.5f, 6.0f, 7.5f};

int read_star_catalogue(const char* path)
{
	num_stars = 0;
	unsigned char* add = nullptr;
	XMappedFile file(path, &add);
	int c = 0, c_max = 0;
	if (!MAP_check_file(ft_none, &file, add, &c, &c_max, "740")) {
		NB_ALERT("I could not read the star catalogue!", "The night sky will have no stars.", "Exact path is:", path, alert_notice);
		return 0;
	}
	for (;;) {
		TXT_MAP_finish_line(add, &c, c_max);
		if (TXT_MAP_is_end(add, c, c_max) || num_stars >= star_max) break;
		const int before = c;
		star_entry s;
		s.ra_hours = TXT_MAP_flt_scan(add, &c, c_max);
		s.dec_deg = TXT_MAP_flt_scan(add, &c, c_max);
		s.mag = TXT_MAP_flt_scan(add, &c, c_max);
		char name[64];
		TXT_MAP_str_scan(add, &c, c_max, name, sizeof name);
		if (c == before) break;
		if (!(s.ra_hours >= 0.0f && s.ra_hours < 24.0f && std::fabs(s.dec_deg) <= 90.0f && std::isfinite(s.mag))) {
			NB_ALERT("The star catalogue is corrupted!", "The night sky will have no stars.", "Exact path is:", path, alert_notice);
			num_stars = 0;
			return 0;
		}
		stars[num_stars++] = s;
	}
	return 1;
}

void build_star_lists()
{
	for (int& l : ren.DL_stars) {
		if (l) glDeleteLists((GLuint)l, 1);
		l = 0;
	}
	if (!plat_has_gl()) return;
	int k = 0;
	for (int band = 0; band < 6; band++) {
		const GLuint list = glGenLists(1);
		if (!list) return;
		ren.DL_stars[band] = (int)list;
		glNewList(list, GL_COMPILE);
		glBegin(GL_POINTS);
		for (; k < num_stars && (band == 5 || stars[k].mag < star_band_mag[band]); k++) {
			const float ra = stars[k].ra_hours * 15.0f * con.degtorad, dec = stars[k].dec_deg * con.degtorad;
			glVertex3f(dis_to_sun * std::cos(dec) * std::cos(ra), dis_to_sun * std::cos(dec) * std::sin(ra), dis_to_sun * std::sin(dec));
		}
		glEnd();
		glEndList();
	}
}

void sky_to_local(double lat_deg, double lst_hours, float m[16])
{
	// Hour angle H = LST - RA. A star's place is cos(dec)cos(H) toward the equator's highest
	// point, cos(dec)sin(H) toward the west and sin(dec) toward the pole.
	const double L = lst_hours * 15.0 * M_PI / 180.0, f = lat_deg * M_PI / 180.0;
	const double sl = std::sin(L), cl = std::cos(L), sf = std::sin(f), cf = std::cos(f);
	const double cols[3][3] = {{-sl, cf * cl, sf * cl}, {cl, cf * sl, sf * sl}, {0.0, sf, -cf}};
	std::fill(m, m + 16, 0.0f);
	for (int c = 0; c < 3; c++)
		for (int r = 0; r < 3; r++) m[c * 4 + r] = (float)cols[c][r];
	m[15] = 1.0f;
}

void draw_stars(float brat_star, float star_boost)
{
	static const float band_brt[6] = {1.0f, 1.0f, 0.7f, 0.4f, 0.1f, -0.2f};
	OGL_setstate(st_fog_off, 0, st_unlit, st_blend, st_no_depth_read, st_no_depth_write);
	for (int band = 0; band < 6; band++) {
		const float b = brat_star * std::clamp(star_boost + band_brt[band], 0.0f, 1.0f);
		if (b < 0.01f || !ren.DL_stars[band]) continue;
		glPointSize(band == 0 ? 2.0f : 1.0f);
		OGL_setcolorRGBA(1.0f, 1.0f, 1.0f, b, 1);
		glCallList((GLuint)ren.DL_stars[band]);
	}
	glPointSize(1.0f);
}
