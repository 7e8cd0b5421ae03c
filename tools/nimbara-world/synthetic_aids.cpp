// Synthetic radio aids laid out as approaches put them, from the real runways' ends:
// an ILS (localizer, glide slope, DME, outer and middle markers, a final-approach fix) on
// each end of the long runways of large and medium airports, a VOR-DME at each large
// airport, an NDB at medium airports without an ILS, and airways between near VORs.
// Frequencies are in the real bands and never repeat within the two aids' ranges.
// Everything runs in a fixed order, so that the same input gives the same files.
#include "tools/nimbara-world/synthetic_aids.h"
#include "world/nav_data.h"
#include "core/HL_TYPES.h"
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <map>
#include <set>

namespace {

constexpr double ft = 0.3048, nm = 1852.0;
constexpr double loc_range_nm = 18, gs_range_nm = 10, vor_range_nm = 130, ndb_range_nm = 25, mkr_range_nm = 1;

struct channel_use { float lat, lon, range_nm; };

// The frequencies of each kind, in the order they are tried.
std::vector<int> loc_channels()
{
	std::vector<int> v;
	for (int f = 10810; f <= 11195; f += 5)
		if ((f / 10) % 2 == 1) v.push_back(f);   // odd tenths: 108.10, 108.15, 108.30 ...
	return v;
}

std::vector<int> vor_channels()
{
	std::vector<int> v;
	for (int f = 10800; f <= 11795; f += 5)
		if (f >= 11200 || (f / 10) % 2 == 0) v.push_back(f);   // even tenths below 112
	return v;
}

std::vector<int> ndb_channels()
{
	std::vector<int> v;
	for (int f = 190; f <= 535; f++) v.push_back(f);
	return v;
}

// The first channel with no user nearer than the sum of the two ranges; in a cluster too
// dense for that, the one whose nearest user is farthest off.
int pick_channel(const std::vector<int>& channels, std::map<int, std::vector<channel_use>>& used, float lat, float lon, float range_nm)
{
	int best = channels[0];
	double best_margin = -1e30;
	for (int f : channels) {
		double margin = 1e30;
		for (const channel_use& u : used[f]) margin = std::min(margin, gc_dist_m(lat, lon, u.lat, u.lon) / nm - (range_nm + u.range_nm));
		if (margin > 0) { best = f; break; }
		if (margin > best_margin) { best_margin = margin; best = f; }
	}
	used[best].push_back({lat, lon, range_nm});
	return best;
}

vec_nav_struct aid(int type, double lat, double lon, float h, int frq, double range_nm, double psi, const std::string& id, const std::string& name)
{
	vec_nav_struct n{};
	n.type = type;
	n.lat = (float)lat;
	n.lon = (float)lon;
	n.h = h;
	n.frq = frq;
	n.sqr_range_deg = (float)((range_nm / 40.0) * (range_nm / 40.0) * 1.5);
	n.psi_true = (float)psi;
	std::snprintf(n.nav_id, sizeof n.nav_id, "%.4s", id.c_str());
	n.nav_name = name;
	return n;
}

// Outside every runway of the airport, with 150 m to spare.
bool clear_of_runways(const vec_apt_struct& a, double lat, double lon)
{
	for (const vec_rwy_struct& r : a.rwy) {
		const double d = gc_dist_m(r.lat, r.lon, lat, lon), b = gc_bearing_deg(r.lat, r.lon, lat, lon);
		const double along = d * std::cos((b - r.psi_true) * M_PI / 180.0), cross = d * std::sin((b - r.psi_true) * M_PI / 180.0);
		if (std::fabs(along) <= 0.5 * r.len + 150.0 && std::fabs(cross) <= 0.5 * r.width + 150.0) return false;
	}
	return true;
}

std::string tail(const char* apt_id, size_t n)
{
	const std::string s = apt_id;
	return s.size() > n ? s.substr(s.size() - n) : s;
}

}  // namespace

void make_synthetic_aids(const std::vector<known_runway>& runways)
{
	vec_nav.clear();
	vec_fix.clear();
	vec_awy.clear();
	std::map<int, std::vector<channel_use>> loc_used, vor_used, ndb_used;
	const std::vector<int> locs = loc_channels(), vors = vor_channels(), ndbs = ndb_channels();
	std::map<int, int> ils_count;   // per airport
	std::set<int> has_ils;
	for (const known_runway& r : runways) {
		if (!(r.large || r.medium) || r.len_m < 6000 * ft) continue;
		const vec_apt_struct& a = vec_apt[r.apt];
		for (int e = 0; e < 2; e++) {
			const int o = 1 - e;
			const double course = gc_bearing_deg(r.lat[e], r.lon[e], r.lat[o], r.lon[o]);
			const std::string letter(1, (char)('A' + ils_count[r.apt]++ % 26));
			const std::string id = "I" + tail(a.apt_id, 2) + letter, label = std::string(a.apt_id) + " " + r.ident[e];
			double la, lo, gla, glo;
			gc_destination(r.lat[o], r.lon[o], course, 1000 * ft, &la, &lo);   // past the far end
			const int frq = pick_channel(locs, loc_used, (float)la, (float)lo, (float)loc_range_nm);
			vec_nav.push_back(aid(nav_ils, la, lo, a.h, frq, loc_range_nm, course, id, label + " ILS"));
			gc_destination(r.lat[e], r.lon[e], course, 1000 * ft, &gla, &glo);   // beside the touchdown zone
			gc_destination(gla, glo, course + 90.0, 400 * ft, &gla, &glo);
			vec_nav.push_back(aid(nav_gs, gla, glo, a.h, frq, gs_range_nm, 300000.0 + std::round(course * 100.0) / 100.0, id, label + " GS"));
			vec_nav.push_back(aid(nav_dme, gla, glo, a.h, frq, loc_range_nm, 0.0, id, label + " DME-ILS"));
			gc_destination(r.lat[e], r.lon[e], course + 180.0, 4.5 * nm, &la, &lo);
			vec_nav.push_back(aid(nav_om, la, lo, a.h, 0, mkr_range_nm, course, "----", label + " OM"));
			gc_destination(r.lat[e], r.lon[e], course + 180.0, 3500 * ft, &la, &lo);
			vec_nav.push_back(aid(nav_mm, la, lo, a.h, 0, mkr_range_nm, course, "----", label + " MM"));
			gc_destination(r.lat[e], r.lon[e], course + 180.0, 5.0 * nm, &la, &lo);   // the final-approach fix
			vec_fix_struct x{};
			x.lat = (float)la;
			x.lon = (float)lo;
			std::snprintf(x.fix_name, sizeof x.fix_name, "F%.3s%c", tail(a.apt_id, 3).c_str(), letter[0]);
			vec_fix.push_back(x);
		}
		has_ils.insert(r.apt);
	}
	// VOR-DMEs at the large airports, a nautical mile aside from the longest runway's centre.
	std::vector<int> vor_index;
	std::set<int> done;
	for (const known_runway& r : runways) {
		if (!r.large || done.count(r.apt)) continue;
		done.insert(r.apt);   // the first of an airport's runways is its longest
		const vec_apt_struct& a = vec_apt[r.apt];
		const double hdg = gc_bearing_deg(r.lat[0], r.lon[0], r.lat[1], r.lon[1]);
		double cla, clo, la = 0, lo = 0;
		gc_destination(r.lat[0], r.lon[0], hdg, 0.5 * gc_dist_m(r.lat[0], r.lon[0], r.lat[1], r.lon[1]), &cla, &clo);
		// Aside from the longest runway's centre, on the first spot clear of all its runways.
		for (int k = 0; k < 12; k++) {
			gc_destination(cla, clo, hdg + (k % 2 ? -90.0 : 90.0), (1.0 + 0.5 * (k / 2)) * nm, &la, &lo);
			if (clear_of_runways(a, la, lo)) break;
		}
		const int frq = pick_channel(vors, vor_used, (float)la, (float)lo, (float)vor_range_nm);
		const std::string id = tail(a.apt_id, 3), name = a.apt_name + " VOR-DME";
		vor_index.push_back((int)vec_nav.size());
		vec_nav.push_back(aid(nav_vor, la, lo, a.h, frq, vor_range_nm, 0.0, id, name));
		vec_nav.push_back(aid(nav_dme, la, lo, a.h, frq, vor_range_nm, 0.0, id, name));
	}
	// NDBs on the approach to the longest runway of medium airports without an ILS.
	done.clear();
	for (const known_runway& r : runways) {
		if (!r.medium || has_ils.count(r.apt) || done.count(r.apt)) continue;
		done.insert(r.apt);
		const vec_apt_struct& a = vec_apt[r.apt];
		const double course = gc_bearing_deg(r.lat[0], r.lon[0], r.lat[1], r.lon[1]);
		double la, lo;
		gc_destination(r.lat[0], r.lon[0], course + 180.0, 4.0 * nm, &la, &lo);
		const int frq = pick_channel(ndbs, ndb_used, (float)la, (float)lo, (float)ndb_range_nm);
		vec_nav.push_back(aid(nav_ndb, la, lo, a.h, frq, ndb_range_nm, 0.0, tail(a.apt_id, 2), a.apt_name + " NDB"));
	}
	// Airways from each VOR to its four nearest within 200 nm, each pair once.
	std::set<std::pair<int, int>> pairs;
	int number = 1;
	for (size_t i = 0; i < vor_index.size(); i++) {
		const vec_nav_struct& a = vec_nav[vor_index[i]];
		std::vector<std::pair<double, int>> near;
		for (size_t j = 0; j < vor_index.size(); j++) {
			if (j == i) continue;
			const vec_nav_struct& b = vec_nav[vor_index[j]];
			if (std::fabs(a.lat - b.lat) > 4.0) continue;   // 200 nm is under 3.4 degrees of latitude
			const double d = gc_dist_m(a.lat, a.lon, b.lat, b.lon);
			if (d <= 200 * nm) near.push_back({d, (int)j});
		}
		std::sort(near.begin(), near.end());
		for (size_t k = 0; k < near.size() && k < 4; k++) {
			const std::pair<int, int> key = {std::min((int)i, near[k].second), std::max((int)i, near[k].second)};
			if (!pairs.insert(key).second) continue;
			const vec_nav_struct& b = vec_nav[vor_index[near[k].second]];
			vec_awy_struct w{};
			w.lat[0] = a.lat; w.lon[0] = a.lon;
			w.lat[1] = b.lat; w.lon[1] = b.lon;
			w.lohi = 1;
			w.awy_name = "V" + std::to_string(number++);
			vec_awy.push_back(std::move(w));
		}
	}
}
