// 24-bit BMP files: our own reader into the texture buffer, and the writer of the
// buffer's packed rows for screenshots and tools.
#include "render/textures.h"
#include "core/HL_TYPES.h"
#include "core/files.h"
#include <algorithm>
#include <cstdio>
#include <cstring>

namespace {

unsigned u16(const unsigned char* p) { return p[0] | (unsigned)p[1] << 8; }
unsigned u32(const unsigned char* p) { return p[0] | (unsigned)p[1] << 8 | (unsigned)p[2] << 16 | (unsigned)p[3] << 24; }

void put16(unsigned char* p, unsigned v) { p[0] = (unsigned char)v; p[1] = (unsigned char)(v >> 8); }
void put32(unsigned char* p, unsigned v)
{
	for (int k = 0; k < 4; k++) p[k] = (unsigned char)(v >> (8 * k));
}

}  // namespace

int load_bmp_into_scratch(const std::string& hard_path, int index, int type, int bytes, int filter_type, int* full_width)
{
	if (!check_index(hard_path, index) || !check_type(hard_path, type) || !check_bytes(hard_path, bytes) ||
	    !check_filter_type(hard_path, filter_type))
		return 0;
	const std::string path = tex_file_path(hard_path, ".bmp");
	unsigned char* add = nullptr;
	XMappedFile file(path.c_str(), &add);
	int c_use = 0, c_max = 0;
	if (!MAP_check_file(ft_bmp, &file, add, &c_use, &c_max, "NOT NIMBASYS") || c_max < 16) return 0;
	const size_t size = (size_t)c_max;
	if (add[0] != 'B' || add[1] != 'M') {
		tex_alert("Trying to read a texture bitmap that is not a bitmap", "", path);
		return 0;
	}
	if (size < 54) {
		tex_alert("Trying to read a texture bitmap that is not a bitmap", "The file ends inside its headers.", path);
		return 0;
	}
	const unsigned offset = u32(add + 10);
	const int width = (int)u32(add + 18), height_signed = (int)u32(add + 22);
	const unsigned bits = u16(add + 28), comp = u32(add + 30);
	const bool top_down = height_signed < 0;
	const long long height = top_down ? -(long long)height_signed : height_signed;
	if (width > 1024) { tex_alert("Bitmap too wide! (max is 1024)", "", path); return 0; }
	if (height > 1024) { tex_alert("Bitmap too tall! (max is 1024)", "", path); return 0; }
	if (bits != 24) {
		NB_ALERT("Wrong bitmap color depth for texture!", "We need 24-bit color.", ret_host_path(path), "", alert_notice);
		return 0;
	}
	if (comp != 0) { tex_alert("Bitmap is compressed!", "", path); return 0; }
	if (width < 1 || height < 1) { check_dx(path, width < 1 ? width : (int)height); return 0; }
	const size_t stride = ((size_t)width * 3 + 3) / 4 * 4;
	if (offset < 54 || offset > size || (size - offset) / stride < (size_t)height) {
		tex_alert("Trying to read a texture bitmap that is not a bitmap", "The file ends before its last row.", path);
		return 0;
	}
	if (tex_forces_key(index)) filter_type = filt_key_magenta;
	int dx = width, dy = (int)height, os_x = 0, os_y = 0;
	const float scale = get_scale(path, index, type, &dx, &dy, &os_x, &os_y, full_width);
	if (scale <= 0.0f) return 0;
	const bool over = type == tex_panel_instrument || type == tex_panel_layer;
	if (!over) std::memset(scratch_array, 0, scratch_bytes - 15);
	const bool key = filter_type == filt_key_magenta || filter_type == filt_key_magenta_mip;
	const bool mean = filter_type == filt_alpha_mean || filter_type == filt_alpha_mean_mip;
	const int fw = *full_width;
	for (int j = 0; j < dy; j++) {
		const int sy = std::min((int)(j / scale), (int)height - 1);   // rows from the bottom
		const unsigned char* row = add + offset + stride * (size_t)(top_down ? height - 1 - sy : sy);
		for (int i = 0; i < dx; i++) {
			const unsigned char* s = row + 3 * (size_t)std::min((int)(i / scale), width - 1);
			const unsigned char r = win_gamma[s[2]], g = win_gamma[s[1]], b = win_gamma[s[0]];
			const bool magenta = r == 255 && g == 0 && b == 255;
			if (over && bytes == 4 && magenta) continue;   // a hole in the layer
			const int y = os_y + j, x = os_x + i;
			if (y < 0 || x < 0 || y >= 1024 || x >= fw) continue;
			unsigned char* d = scratch_array + ((size_t)y * fw + x) * bytes;
			if (bytes == 1) { d[0] = (unsigned char)((r + g + b) / 3); continue; }
			d[0] = r;
			d[1] = g;
			d[2] = b;
			if (bytes == 4) d[3] = key ? (magenta ? 0 : 255) : mean ? (unsigned char)((r + g + b) / 3) : 255;
		}
	}
	return 1;
}

int OGL_make_bmp(const std::string& hard_path, int dx, int dy)
{
	std::string path = hard_path;
	set_dir_chars(path);
	if (dx < 1 || dy < 1 || (size_t)dx * dy * 3 > (size_t)scratch_bytes - 15) return 0;
	const size_t row = (size_t)dx * 3, pad = (4 - row % 4) % 4;   // none for the widths callers pass
	unsigned char head[54] = {'B', 'M'};
	put32(head + 2, (unsigned)((row + pad) * dy + 54));
	put32(head + 10, 54);
	put32(head + 14, 40);
	put32(head + 18, (unsigned)dx);
	put32(head + 22, (unsigned)dy);
	put16(head + 26, 1);
	put16(head + 28, 24);
	for (size_t k = 0; k < (size_t)dx * dy; k++) std::swap(scratch_array[k * 3], scratch_array[k * 3 + 2]);
	std::FILE* f = std::fopen(path.c_str(), "wb");
	if (!f) {
		MACIBM_alert(0, "I could not save the file! Could the directory that the file sits in be missing?", path,
		             "Could the file be flagged as read-only?", "", alert_notice, __FILE__, __LINE__);
		return 0;
	}
	bool ok = std::fwrite(head, 1, 54, f) == 54;
	static const unsigned char zeros[3] = {0, 0, 0};
	for (int y = 0; y < dy && ok; y++)
		ok = std::fwrite(scratch_array + row * y, 1, row, f) == row && std::fwrite(zeros, 1, pad, f) == pad;
	return std::fclose(f) == 0 && ok;
}
