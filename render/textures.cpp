// The texture buffers, the checks every load makes, the scale an image takes by its id,
// and OGL_texbmp, which finds the file and sends it where its type says.
#include "render/textures.h"
#include "core/HL_MAIN.h"
#include "core/HL_TYPES.h"
#include "core/files.h"
#include <GL/gl.h>
#include <algorithm>
#include <cmath>
#include <cstring>

namespace {

alignas(16) unsigned char scratch_raw[scratch_bytes];
unsigned char cockpit_blocks[9][1024 * 1024 * 4];

std::string lower(std::string s)
{
	for (char& c : s) c = (char)std::tolower((unsigned char)c);
	return s;
}

int next_pow2(int n)
{
	int p = 1;
	while (p < n) p *= 2;
	return p;
}

bool in(int id, int lo, int hi) { return id >= lo && id <= hi; }

// The user's resolution setting: 4 full, each step down halves.
float tex_res_scale()
{
	const int r = std::clamp(mnw.tex_res, 0, 4);
	return 1.0f / (float)(1 << (4 - r));
}

}  // namespace

unsigned char* scratch_array = scratch_raw;
unsigned char scratch_array_temp[scratch_bytes];
unsigned char* cockpit_array[9] = {cockpit_blocks[0], cockpit_blocks[1], cockpit_blocks[2], cockpit_blocks[3], cockpit_blocks[4],
                                   cockpit_blocks[5], cockpit_blocks[6], cockpit_blocks[7], cockpit_blocks[8]};
unsigned char win_gamma[256];

// Files made for a darker screen, lightened for ours.
[[maybe_unused]] static const bool win_gamma_ready = [] {
	for (int i = 0; i < 256; i++) win_gamma[i] = (unsigned char)(std::pow(i / 255.0, 0.818181818) * 255.0 + 0.5);
	return true;
}();

std::string tex_file_path(const std::string& hard_path, const char* ext)
{
	std::string path = hard_path;
	const size_t dot = path.find_last_of('.'), sep = path.find_last_of(":/\\");
	if (dot != std::string::npos && (sep == std::string::npos || dot > sep)) path.erase(dot);
	path += ext;
	set_dir_chars(path);
	return path;
}

void tex_alert(const char* what, const char* more, const std::string& path)
{
	NB_ALERT(what, more, ret_host_path(path), "", alert_notice);
}

int check_dx(const std::string& path, int dx)
{
	if (dx >= 1 && dx <= 1024) return 1;
	tex_alert("Trying to create a texture either less than 1 or greater than 1024!", "", path);
	return 0;
}

int check_dy(const std::string& path, int dy)
{
	if (dy >= 1 && dy <= 1024) return 1;
	tex_alert("Trying to create a texture either less than 1 or greater than 1024!", "", path);
	return 0;
}

int check_type(const std::string& path, int type)
{
	if (type >= -104 && type <= -100) return 1;
	tex_alert("Trying to creata an invalid texture type!", "", path);
	return 0;
}

int check_index(const std::string& path, int index)
{
	if (index >= 0 && index < tex_id_max) return 1;
	tex_alert("Trying to bind too low or high a texture index!", "", path);
	return 0;
}

int check_filter_type(const std::string& path, int filter_type)
{
	if (filter_type >= -113 && filter_type <= -107) return 1;
	tex_alert("Trying to bind an invalid filter type!", "", path);
	return 0;
}

int check_bytes(const std::string& path, int bytes)
{
	if (bytes >= 1 && bytes <= 4) return 1;
	tex_alert("Trying to bind too low or high a number of bytes!", "", path);
	return 0;
}

int check_rgb_type(const std::string& path, int rgb_type)
{
	if (rgb_type >= GL_ALPHA && rgb_type <= GL_RGBA) return 1;
	tex_alert("Trying to bind an invalid RGB type!", "", path);
	return 0;
}

float get_scale(const std::string& path, int index, int type, int* dx, int* dy, int* os_x, int* os_y, int* full_width)
{
	*os_x = *os_y = 0;
	if (!check_index(path, index) || !check_type(path, type)) return 0.0f;
	check_dx(path, *dx);
	check_dy(path, *dy);
	float scale = 1.0f;
	*full_width = 1024;
	const bool tex = type == tex_load || type == tex_scratch_only;
	if (tex) {
		*full_width = *dx;
		scale = tex_res_scale();
		if (index <= 177 || index >= 1000 || index == 386 || index == 387) scale *= 0.5f;   // land, runways, planet, scenery
	}
	if (in(index, 203, 206) && scale < 1.0f) scale *= 2.0f;   // clouds
	if (in(index, 428, 467)) scale *= 0.5f;
	if (index == 178 || index == 216 || in(index, 228, 250) || in(index, 468, 476) || in(index, 495, 498) || in(index, 7942, 9141))
		scale = 1.0f;
	while (scale < 1.0f && (*dx * scale < 1.0f || *dy * scale < 1.0f)) scale *= 2.0f;
	scale = std::min(scale, 1.0f);
	const int maxdim = ren.maxtexdim > 0 ? ren.maxtexdim : 1024;
	while (*dx * scale > maxdim || *dy * scale > maxdim) scale *= 0.5f;
	if (tex && (index < 49 || in(index, 7000, 7700))) {   // square tiles side by side
		const int ratio = *dy > 0 ? *dx / *dy : 0;
		if (*dy <= 0 || *dx % *dy != 0 || ratio < 1 || ratio > 512 || (ratio & (ratio - 1)) != 0)
			tex_alert("Wrong size terrain texture!", "Texture must be power of 2 high, and some integer multipe (including 1) of that ", path);
		else if (index < 49)
			ren.tex_tiles[index] = ratio;
	}
	if (type == tex_panel_instrument) {
		const int en = index - 7942;
		if (en < 0 || en >= 300) {
			tex_alert("Bad instrument index!", "", path);
			return 0.0f;
		}
		scale = veh[0].ins_size[en] > 0.0f ? veh[0].ins_size[en] : 1.0f;
		*os_x = (int)(veh[0].ins_x[en] - *dx * scale * 0.5f);
		*os_y = (int)(veh[0].ins_y[en] - *dy * scale * 0.5f);
	}
	*dx = std::max(1, (int)(*dx * scale));
	*dy = std::max(1, (int)(*dy * scale));
	ren.tex_dx_vis[index] = ren.tex_dx_tot[index] = *dx;
	ren.tex_dy_vis[index] = ren.tex_dy_tot[index] = *dy;
	if (tex) {   // the picture at the bottom left of a power-of-two texture, rows at its stride
		ren.tex_dx_tot[index] = next_pow2(*dx);
		ren.tex_dy_tot[index] = next_pow2(*dy);
		*full_width = ren.tex_dx_tot[index];
	}
	check_dx(path, ren.tex_dx_tot[index]);
	check_dy(path, ren.tex_dy_tot[index]);
	return scale;
}

bool tex_forces_key(int index) { return in(index, 424, 467) || in(index, 7701, 7941); }

int OGL_texbmp(int type, int index, int filter_type, const std::string& hard_path)
{
	std::string path = hard_path;
	// A path below the art root may leave the root out; one in the aircraft's folder or any
	// other place under the program's own folder is taken as it is.
	const std::string low = lower(path);
	if (low.rfind(lower(bmp_path), 0) != 0 && (app_path.empty() || low.rfind(lower(app_path), 0) != 0) && path.compare(0, 1, "/") != 0)
		path = bmp_path + path;
	if (!check_index(path, index) || !check_type(path, type) || !check_filter_type(path, filter_type)) return 0;
	if (type == tex_load && index % 8 == 0) {
		const size_t slash = path.find_last_of(":/\\");
		MACIBM_showinit(("Loading bitmap " + path.substr(slash == std::string::npos ? 0 : slash + 1)).c_str());
	}
	const bool rgba = (filter_type >= -112 && filter_type <= -109) || (type >= -104 && type <= -102);
	const int rgb_type = rgba ? GL_RGBA : filter_type == filt_alpha_only_mip ? GL_ALPHA : GL_RGB;
	const int bytes = rgba ? 4 : rgb_type == GL_ALPHA ? 1 : 3;
	int full_width = 1024;
	const bool key = filter_type == filt_key_magenta || filter_type == filt_key_magenta_mip || tex_forces_key(index);
	int got = load_png_into_scratch(path, index, type, bytes, &full_width, key);
	if (!got) got = load_bmp_into_scratch(path, index, type, bytes, filter_type, &full_width);
	if (!got) return 0;
	if (type == tex_load) {
		OGL_load_tex(path, index, 0, filter_type, rgb_type, scratch_array);
		if (filter_type == filt_rgb_mip || filter_type == filt_key_magenta_mip || filter_type == filt_alpha_mean_mip ||
		    filter_type == filt_alpha_only_mip)
			OGL_mini_me(path, index, filter_type, rgb_type, scratch_array);
	}
	return 1;
}
