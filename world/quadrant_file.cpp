// Writing and reading the quadrant file. Files we write are little-endian ('i'); a file
// from the other byte order is read through the scanners' reversal, except the
// elevation, which is big-endian in every file.
#include "world/quadrant_file.h"
#include "core/files.h"
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

std::string return_latlon_str_ENV(int lat_file, int lon_file)
{
	auto part = [](int lat, int lon) {
		char s[32];
		std::snprintf(s, sizeof s, "%c%02d%c%03d", lat >= 0 ? '+' : '-', std::abs(lat), lon >= 0 ? '+' : '-', std::abs(lon));
		return std::string(s);
	};
	const int lat_dir = (lat_file + 90) / 10 * 10 - 90, lon_dir = (lon_file + 180) / 10 * 10 - 180;
	return part(lat_dir, lon_dir) + "\\" + part(lat_file, lon_file) + ".env";
}

int quad_num_lists(int version) { return version == 61 ? 4 : version == 631 ? 5 : 6; }

int lat_lon_to_code(double lat, double lon, int lat_file, int lon_file)
{
	auto part = [](double d) { return (int)std::lround(std::fmin(std::fmax(d, 0.0), 1.0) * 9999.0); };
	return part(lat - lat_file) * 10000 + part(lon - lon_file);
}

void code_to_lat_lon(int code, int lat_file, int lon_file, double* lat, double* lon)
{
	const long long c = std::llabs((long long)code);
	*lat = lat_file + (double)(c / 10000) / 9999.0;
	*lon = lon_file + (double)(c % 10000) / 9999.0;
}

int make_land_code(const land_code_parts& p)
{
	return p.I * 100000000 + p.J * 10000000 + p.T * 1000000 + p.R * 100000 + p.use;
}

land_code_parts split_land_code(int code)
{
	const long long c = std::llabs((long long)code);
	return {(int)(c / 100000000 % 10), (int)(c / 10000000 % 10), (int)(c / 1000000 % 10), (int)(c / 100000 % 10), (int)(c % 100000)};
}

// --- writing

namespace {

struct out_file {
	std::FILE* f;
	int ok = 1;
	void bytes(const void* p, size_t n) { ok &= std::fwrite(p, 1, n, f) == n; }
	void i32(int32_t v)
	{
		const unsigned char b[4] = {(unsigned char)v, (unsigned char)(v >> 8), (unsigned char)(v >> 16), (unsigned char)(v >> 24)};
		bytes(b, 4);
	}
	void f32(float v)
	{
		int32_t i;
		std::memcpy(&i, &v, 4);
		i32(i);
	}
	void name(const std::string& s)
	{
		char b[quad_name_len] = {};
		std::memcpy(b, s.data(), std::min(s.size(), (size_t)quad_name_len - 1));
		bytes(b, quad_name_len);
	}
};

}  // namespace

int write_quadrant(const std::string& host_path, const quadrant_data& q)
{
	if (q.vertices.size() != (size_t)(q.imax + 1) * (q.jmax + 1)) return 0;
	out_file o{std::fopen(host_path.c_str(), "wb")};
	if (!o.f) return 0;
	o.bytes("i", 1);
	o.i32(q.version);
	for (const quad_vertex& v : q.vertices) {
		o.i32(v.pos_code);
		const int e = std::min(std::max(v.elev_m + 10000, 0), 65535);
		const unsigned char be[2] = {(unsigned char)(e >> 8), (unsigned char)e};
		o.bytes(be, 2);
		o.i32(v.land_code);
	}
	// Each section ends in a record of its own: the objects in a type of 99 alone, each
	// list of points in the code 99, the taxiways in a point of 0, 0 tagged "g".
	for (const quad_object& ob : q.objects) {
		o.i32(ob.type);
		o.f32(ob.lat);
		o.f32(ob.lon);
		o.f32(ob.psi_dy);
		if (ob.type == 8) o.name(ob.name);
	}
	o.i32(quad_obj_end);
	for (int l = 0; l < quad_num_lists(q.version); l++) {
		for (const quad_point& p : q.lists[l])
			if (l == quad_taxis) {
				o.f32(p.lat);
				o.f32(p.lon);
				o.bytes(p.tag == 'e' ? "e" : "p", 1);
			} else {
				// A chain's last point is its code made negative; the south-west corner, whose
				// code is 0, goes 1 step east to be told apart. No point may read as the list's
				// end, 99: that one goes a step east too.
				int code = std::abs(p.code);
				if (code == quad_list_end) code++;
				o.i32(p.tag == 'e' ? -(code == 0 ? 1 : code) : code);
			}
		if (l == quad_taxis) {
			o.f32(0.0f);
			o.f32(0.0f);
			o.bytes("g", 1);
		} else
			o.i32(quad_list_end);
	}
	for (size_t t = 0; t < q.textures.size() && t < quad_max_textures; t++) o.name(q.textures[t]);
	o.ok &= std::fclose(o.f) == 0;
	return o.ok;
}

// --- reading

int quad_read_vertex(quad_cursor& c, quad_vertex* v)
{
	if (c.c_max - c.c_use < 10) { c.c_use = c.c_max; return -1; }
	v->pos_code = BIN_MAP_int_scan(c.add, &c.c_use, c.c_max);
	v->elev_m = ((int)c.add[c.c_use] << 8 | c.add[c.c_use + 1]) - 10000;
	c.c_use += 2;
	v->land_code = BIN_MAP_int_scan(c.add, &c.c_use, c.c_max);
	return 1;
}

int quad_read_object(quad_cursor& c, quad_object* o)
{
	if (c.c_max - c.c_use < 4) { c.c_use = c.c_max; return -1; }
	o->type = BIN_MAP_int_scan(c.add, &c.c_use, c.c_max);
	if (o->type == quad_obj_end) return 0;
	if (c.c_max - c.c_use < 12) { c.c_use = c.c_max; return -1; }
	o->lat = BIN_MAP_flt_scan(c.add, &c.c_use, c.c_max);
	o->lon = BIN_MAP_flt_scan(c.add, &c.c_use, c.c_max);
	o->psi_dy = BIN_MAP_flt_scan(c.add, &c.c_use, c.c_max);
	o->name.clear();
	if (o->type == 8) {
		if (c.c_max - c.c_use < quad_name_len) { c.c_use = c.c_max; return -1; }
		const char* s = (const char*)c.add + c.c_use;
		o->name.assign(s, strnlen(s, quad_name_len));
		c.c_use += quad_name_len;
	}
	return 1;
}

int quad_read_point(quad_cursor& c, int taxiway, quad_point* p)
{
	if (taxiway) {
		if (c.c_max - c.c_use < 9) { c.c_use = c.c_max; return -1; }
		p->lat = BIN_MAP_flt_scan(c.add, &c.c_use, c.c_max);
		p->lon = BIN_MAP_flt_scan(c.add, &c.c_use, c.c_max);
		p->tag = (char)c.add[c.c_use++];
		p->code = 0;
		return p->tag == 'g' ? 0 : 1;
	}
	if (c.c_max - c.c_use < 4) { c.c_use = c.c_max; return -1; }
	p->code = BIN_MAP_int_scan(c.add, &c.c_use, c.c_max);
	p->tag = p->code < 0 ? 'e' : 'p';
	p->lat = p->lon = 0.0f;
	return p->code == quad_list_end ? 0 : 1;
}

int quad_read_texture(quad_cursor& c, char name[quad_name_len + 1])
{
	if (c.c_max - c.c_use < quad_name_len) { c.c_use = c.c_max; return -1; }
	std::memcpy(name, c.add + c.c_use, quad_name_len);
	name[quad_name_len] = 0;
	c.c_use += quad_name_len;
	return 1;
}

int read_quadrant(const std::string& path, quadrant_data* q, std::string* why)
{
	*q = quadrant_data();
	XMappedFile file(path.c_str(), nullptr);
	quad_cursor c{file.mBegin, 0, 0};
	int version = 0;
	for (const char* v : {"650", "631", "61"})
		if (MAP_check_file(quad_file_type, &file, file.mBegin, &c.c_use, &c.c_max, v)) { version = std::atoi(v); break; }
	if (!version) { *why = "not a quadrant file of version 650, 631 or 61"; return 0; }
	q->version = version;
	// Earth's squares are 150 by 200 steps, Mars's 64 by 64: the second vertex tells which.
	quad_cursor peek = c;
	quad_vertex v0, v1;
	if (quad_read_vertex(peek, &v0) == 1 && quad_read_vertex(peek, &v1) == 1 && std::abs(v1.pos_code) % 10000 == 156) q->imax = q->jmax = 64;
	q->vertices.resize((size_t)(q->imax + 1) * (q->jmax + 1));
	for (quad_vertex& v : q->vertices)
		if (quad_read_vertex(c, &v) < 0) { *why = "the file ends inside its vertices"; return 0; }
	quad_object o;
	int r;
	while ((r = quad_read_object(c, &o)) == 1) q->objects.push_back(o);
	if (r < 0) { *why = "the file ends inside its objects"; return 0; }
	for (int l = 0; l < quad_num_lists(version); l++) {
		quad_point p;
		while ((r = quad_read_point(c, l == quad_taxis, &p)) == 1) q->lists[l].push_back(p);
		if (r < 0) { *why = "the file ends inside a list of linear features"; return 0; }
	}
	char name[quad_name_len + 1];
	while ((int)q->textures.size() < quad_max_textures && quad_read_texture(c, name) == 1) q->textures.push_back(name);
	return 1;
}
