// Finding a navigation record by its identifier, the nearest of equals to a place; and
// the start airport's place, from which the scenery block is chosen.
#include "world/nav_data.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include <cmath>
#include <cstring>

int get_index_from_id(const std::string& id_req, int type_req, int* index, float lat_des, float lon_des)
{
	// File ids stand without trailing blanks; a request padded to four or three must match.
	std::string id = id_req;
	if (id.size() >= 4 && id[3] == ' ') id.pop_back();
	if (id.size() >= 3 && id[2] == ' ') id.pop_back();
	if (type_req == nav_type_direct) { *index = 0; return 0; }
	float min_dist_deg = 999.9f;
	int found = 0;
	auto consider = [&](int k, float lat, float lon) {
		const float d = std::sqrt((lat - lat_des) * (lat - lat_des) + (lon - lon_des) * (lon - lon_des));
		if (d < min_dist_deg) { min_dist_deg = d; *index = k; found = 1; }
	};
	if (type_req == nav_type_apt) {
		for (size_t k = 0; k < vec_apt.size(); k++)
			if (id == vec_apt[k].apt_id && !vec_apt[k].rwy.empty()) consider((int)k, vec_apt[k].rwy[0].lat, vec_apt[k].rwy[0].lon);
	} else if (type_req == nav_type_fix) {
		for (size_t k = 0; k < vec_fix.size(); k++)
			if (id == vec_fix[k].fix_name) consider((int)k, vec_fix[k].lat, vec_fix[k].lon);
	} else {
		for (size_t k = 0; k < vec_nav.size(); k++)
			if (vec_nav[k].type == type_req && id == vec_nav[k].nav_id) consider((int)k, vec_nav[k].lat, vec_nav[k].lon);
	}
	return found;
}

void get_basic_specs_with_apt_ID()
{
	int k = 0;
	if (vec_apt.empty()) return;
	if (!get_index_from_id(msc.apt_id_str, nav_type_apt, &k, (float)flt[0].dob_lat, (float)flt[0].dob_lon)) k = 0;
	if (vec_apt[k].rwy.empty()) return;
	msc.loc_apt_wrl = k;
	flt[0].dob_lat = vec_apt[k].rwy[0].lat;
	flt[0].dob_lon = vec_apt[k].rwy[0].lon;
	const int p = env.planet == 1 ? 1 : 0;
	env.lat_sou = (int)std::lround(flt[0].dob_lat - lat_secs_os[p]);
	env.lon_wes = (int)std::lround(flt[0].dob_lon - lon_secs_os[p]);
}

float ret_mag_var(float lat, float lon)
{
	if (!std::isfinite(lat) || !std::isfinite(lon)) return 0.0f;
	const float y = fltlim((lat + 90.0f) / 5.0f, 0.0f, 36.0f);
	const float x = fltwrap(lon + 180.0f, 0.0f, 360.0f) / 5.0f;
	const int r = intlim((int)y, 0, 35), c = intlim((int)x, 0, 71);
	const float fy = y - r, fx = x - c;
	// Near the poles the variation turns right round between cells: blend the differences.
	const float base = raw_mag_var[r][c];
	auto rel = [base](float v) { return fltwrap(v - base, -180.0f, 180.0f); };
	const float v = base + (1 - fy) * fx * rel(raw_mag_var[r][c + 1]) +
	                fy * ((1 - fx) * rel(raw_mag_var[r + 1][c]) + fx * rel(raw_mag_var[r + 1][c + 1]));
	return fltwrap(v, -180.0f, 180.0f);
}

// The overrun value packs the first end in whole feet, the second in the fraction times 10000.
void ret_rwy_overruns(const vec_rwy_struct& r, double* first_m, double* second_m)
{
	const double blast = std::fmax(r.blast, 0.0f);
	*first_m = std::floor(blast) * con.fttomtrs;
	*second_m = std::round((blast - std::floor(blast)) * 10000.0) * con.fttomtrs;
}

int on_runway(const vec_rwy_struct& r, double lat, double lon)
{
	const double deg = M_PI / 180.0, m_lat = con.planet_rad * deg;
	const double e = (lon - r.lon) * m_lat * std::cos(r.lat * deg), n = (lat - r.lat) * m_lat;
	const double psi = r.psi_true * deg, along = e * std::sin(psi) + n * std::cos(psi), side = e * std::cos(psi) - n * std::sin(psi);
	double pad1, pad2;
	ret_rwy_overruns(r, &pad1, &pad2);
	return std::fabs(side) <= 0.5 * r.width && along >= -0.5 * r.len - pad1 && along <= 0.5 * r.len + pad2;
}
