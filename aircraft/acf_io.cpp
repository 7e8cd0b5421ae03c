// Reading and writing aircraft files. A read fills a scratch record and replaces the
// aircraft only when the whole file was good, so a rejected file changes nothing.
#include "aircraft/acf_io.h"
#include "core/HL_MAIN.h"
#include "core/HL_TYPES.h"
#include "core/failures.h"
#include "core/files.h"
#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstring>
#include <fstream>
#include <string>

static veh_struct acf_scratch;

static void reverse_units(veh_struct& v)
{
	unsigned char* base = (unsigned char*)&v;
	for (int f = 0; f < veh_field_count; f++) {
		const veh_field_info& fi = veh_fields[f];
		if (fi.offset >= acf_image_size) break;
		if (fi.type != vf_int && fi.type != vf_float) continue;   // text keeps its byte order
		for (size_t k = 0; k < fi.size; k += 4) std::reverse(base + fi.offset + k, base + fi.offset + k + 4);
	}
}

// The record's own first field decides, not the file's first byte.
void rev_bytes_new(veh_struct& v)
{
	if (v.is_APL) reverse_units(v);
}

int acf_read_image(const char* path, veh_struct& v, const char** why)
{
	static const char* w;
	if (!why) why = &w;
	std::ifstream in(ret_host_path(path), std::ios::binary);
	if (!in) { *why = "cannot be opened"; return 0; }
	unsigned char hdr[5];
	if (!in.read((char*)hdr, 5)) { *why = "is too short for an aircraft file"; return 0; }
	if (hdr[0] != 'i' && hdr[0] != 'a') { *why = "is not an aircraft file"; return 0; }
	int version = hdr[0] == 'i' ? hdr[1] | hdr[2] << 8 | hdr[3] << 16 | hdr[4] << 24
	                            : hdr[4] | hdr[3] << 8 | hdr[2] << 16 | hdr[1] << 24;
	if (version != acf_version) { *why = "is not of version 740"; return 0; }
	std::memset(&acf_scratch, 0, sizeof acf_scratch);
	in.read((char*)&acf_scratch, acf_image_size);
	if ((size_t)in.gcount() != acf_image_size) { *why = "is shorter than a version-740 aircraft"; return 0; }
	if (in.peek() != EOF) { *why = "is longer than a version-740 aircraft"; return 0; }
	rev_bytes_new(acf_scratch);
	std::memcpy(&v, &acf_scratch, acf_image_size);
	std::memset((char*)&v + acf_image_size, 0, sizeof v - acf_image_size);
	return 1;
}

int acf_write_image(const char* path, veh_struct& v, int big_endian)
{
	static veh_struct out;
	std::memcpy(&out, &v, acf_image_size);
	out.is_APL = 0;
	if (big_endian) {
		out.is_APL = 1;
		reverse_units(out);
		std::ofstream f(ret_host_path(path), std::ios::binary | std::ios::trunc);
		const unsigned char hdr[5] = {'a', 0, 0, acf_version >> 8, acf_version & 255};
		f.write((const char*)hdr, 5);
		f.write((const char*)&out, acf_image_size);
		return f.good() ? 1 : 0;
	}
	if (!ouf_open(path, ft_acf, acf_version)) return 0;
	ouf.write((const char*)&out, acf_image_size);
	ouf.close();
	return ouf.fail() ? 0 : 1;
}

static int inside_app_path(const char* path)
{
	std::string a = ret_host_path(app_path), p = ret_host_path(path);
	if (p.size() < a.size()) return 0;
	for (size_t n = 0; n < a.size(); n++)
		if (std::tolower((unsigned char)a[n]) != std::tolower((unsigned char)p[n])) return 0;
	return 1;
}

int IO_acf(int IO_type, int p, int is_batch)
{
	if (p < 0 || p >= acf_max) return 0;
	veh_struct& v = veh[p];
	if (IO_type == 1) {
		if (!ACF_check(p, 0)) return 0;
		return acf_write_image(v.path, v, 0);
	}
	if (IO_type != 0) return 0;
	if (!inside_app_path(v.path)) return 0;   // an aircraft must lie inside the program's folder
	static veh_struct loaded;
	const char* why = "";
	if (!acf_read_image(v.path, loaded, &why)) {
		// Not a whole version-740 file: older versions go to the old reader.
		std::memset(&loaded, 0, sizeof loaded);
		std::memcpy(loaded.path, v.path, sizeof v.path);
		std::memcpy(loaded.name, v.name, sizeof v.name);
		int old = 0;
		if (inf_open(v.path, ft_acf, 0, 0)) old = OLD_IO_acf(p, loaded);
		inf[inf_use].close();
		if (!old) {
			if (!std::ifstream(ret_host_path(v.path))) return 0;   // no such file: the caller falls back without a word
			MACIBM_alert(0, "I could not read this aircraft file:", v.path, std::string("The file ") + why + ".", "",
			             alert_notice, __FILE__, __LINE__);
			return 0;
		}
	}
	std::memcpy(loaded.name, v.name, sizeof v.name);
	std::memcpy(loaded.path, v.path, sizeof v.path);
	loaded.cockpit_M = -1;
	// Airfoils of the parts that are alive, each end at both Reynolds numbers.
	static veh_struct saved;
	saved = v;
	v = loaded;
	try {
		for (int en = 0; en < afl_part_max; en++) {
			if (!ret_part_alive(p, en)) continue;
			load_foil_for_part(v.Rafl0[en], p, en, 0, 0);
			load_foil_for_part(v.Rafl1[en], p, en, 0, 1);
			load_foil_for_part(v.Tafl0[en], p, en, 1, 0);
			load_foil_for_part(v.Tafl1[en], p, en, 1, 1);
			for (int rt = 0; rt < 2; rt++) {
				float* re = v.afl[en].re_num[rt];
				if (std::fabs(re[1] - re[0]) < 0.01f) { re[0] = 0.0f; re[1] = 99.9f; }
			}
		}
		std::string cockpit = v.path;
		if (cockpit.size() > 4) cockpit.resize(cockpit.size() - 4);
		v.cockpit_M = build_cockpit_object((cockpit + "_cockpit.obj").c_str());
		ACF_autoset(p);
		ACF_check(p, is_batch);
	} catch (...) {
		v = saved;   // a rejected aircraft leaves the loaded one in place
		throw;
	}
	return 1;
}

int en_is_prop(int p, int en)
{
	int t = veh[p].engn_type[en & 7];
	return t == 0 || t == 1 || t == 2 || t == 8 || t == 3;
}
int en_is_jet(int p, int en) { int t = veh[p].engn_type[en & 7]; return t == 4 || t == 5; }
int en_is_roc(int p, int en) { int t = veh[p].engn_type[en & 7]; return t == 6 || t == 7; }
