// PNG files through libpng, read from the file's mapping: expanded to 8-bit RGBA, corrected
// for the gamma the file declares, turned bottom-up, then scaled into the texture buffer or
// laid over the panel being composed.
#include "render/textures.h"
#include "core/HL_TYPES.h"
#include "core/files.h"
#include <png.h>
#include <algorithm>
#include <cmath>
#include <csetjmp>
#include <cstring>

namespace {

constexpr double screen_gamma = 2.2, default_file_gamma = 0.5555555555555556;

struct png_source {
	const unsigned char* at;
	size_t left;
	char error[200];
};

void png_buffered_read_func(png_structp png, png_bytep out, png_size_t n)
{
	png_source* src = (png_source*)png_get_io_ptr(png);
	if (n > src->left) png_error(png, "the file ends early");
	std::memcpy(out, src->at, n);
	src->at += n;
	src->left -= n;
}

void my_error(png_structp png, png_const_charp msg)
{
	png_source* src = (png_source*)png_get_io_ptr(png);
	std::snprintf(src->error, sizeof src->error, "%s", msg);
	png_longjmp(png, 1);
}

void my_warning(png_structp, png_const_charp) {}

struct decoded {
	int width, height, has_alpha;
	double gamma;   // the file's, or the default
};

// The whole file as RGBA rows in scratch_array_temp, file row 0 at the top. Nothing here
// needs unwinding: libpng's error path jumps back to the setjmp and the structures go.
int decode(const unsigned char* data, size_t size, decoded* out, char* error, size_t error_size)
{
	static png_bytep rows[1024];
	png_source src{data + 8, size - 8, ""};
	png_structp png = png_create_read_struct(PNG_LIBPNG_VER_STRING, &src, my_error, my_warning);
	if (!png) return 0;
	png_infop info = png_create_info_struct(png);
	if (!info) {
		png_destroy_read_struct(&png, nullptr, nullptr);
		return 0;
	}
	if (setjmp(png_jmpbuf(png))) {
		std::snprintf(error, error_size, "%s", src.error);
		png_destroy_read_struct(&png, &info, nullptr);
		return -1;
	}
	png_set_read_fn(png, &src, png_buffered_read_func);
	png_set_sig_bytes(png, 8);
	png_read_info(png, info);
	const png_uint_32 w = png_get_image_width(png, info), h = png_get_image_height(png, info);
	if (w < 1 || h < 1 || w > 1024 || h > 1024) {
		std::snprintf(error, error_size, "%u by %u: a texture is at most 1024 by 1024", (unsigned)w, (unsigned)h);
		png_destroy_read_struct(&png, &info, nullptr);
		return -2;
	}
	const int color = png_get_color_type(png, info), depth = png_get_bit_depth(png, info);
	double file_gamma = 0.0;
	out->gamma = png_get_gAMA(png, info, &file_gamma) && file_gamma > 0.0 ? file_gamma : default_file_gamma;
	out->has_alpha = (color & PNG_COLOR_MASK_ALPHA) || png_get_valid(png, info, PNG_INFO_tRNS);
	if (color == PNG_COLOR_TYPE_PALETTE) png_set_palette_to_rgb(png);
	if (color == PNG_COLOR_TYPE_GRAY && depth < 8) png_set_expand_gray_1_2_4_to_8(png);
	if (png_get_valid(png, info, PNG_INFO_tRNS)) png_set_tRNS_to_alpha(png);
	if (depth == 16) png_set_strip_16(png);
	if (depth < 8) png_set_packing(png);
	if (color == PNG_COLOR_TYPE_GRAY || color == PNG_COLOR_TYPE_GRAY_ALPHA) png_set_gray_to_rgb(png);
	png_set_filler(png, 0xff, PNG_FILLER_AFTER);   // RGBA whatever came in
	png_set_interlace_handling(png);
	png_read_update_info(png, info);
	if (png_get_rowbytes(png, info) != (size_t)w * 4) {
		std::snprintf(error, error_size, "unexpected row size");
		png_destroy_read_struct(&png, &info, nullptr);
		return -1;
	}
	for (png_uint_32 y = 0; y < h; y++) rows[y] = scratch_array_temp + (size_t)y * w * 4;
	png_read_image(png, rows);
	png_read_end(png, nullptr);
	png_destroy_read_struct(&png, &info, nullptr);
	out->width = (int)w;
	out->height = (int)h;
	return 1;
}

}  // namespace

int load_png_into_scratch(const std::string& hard_path, int index, int type, int bytes, int* full_width, bool key_magenta)
{
	if (!check_index(hard_path, index) || !check_type(hard_path, type) || !check_bytes(hard_path, bytes)) return 0;
	const std::string path = tex_file_path(hard_path, ".png");
	unsigned char* add = nullptr;
	XMappedFile file(path.c_str(), &add);
	if (!add || file.mEnd - file.mBegin < 8) return 0;
	if (png_sig_cmp(add, 0, 8) != 0) {
		tex_alert("PING-FILE ERROR!", "is_png=!png_sig_cmp(png_io_buf,0,8)", path);
		return 0;
	}
	decoded img{};
	char error[200] = "";
	const int got = decode(add, (size_t)(file.mEnd - file.mBegin), &img, error, sizeof error);
	file.release();
	if (got == -2) {
		check_dx(path, 0);
		return 0;
	}
	if (got <= 0) {
		NB_ALERT("PING-FILE ERROR!", "setjmp(png_ptr->jmpbuf", ret_host_path(path), error, alert_notice);
		return 0;
	}
	// The gamma, as the BMP reader's table does it when the file declares none.
	unsigned char gamma[256];
	if (img.gamma == default_file_gamma)
		std::memcpy(gamma, win_gamma, sizeof gamma);
	else
		for (int i = 0; i < 256; i++) gamma[i] = (unsigned char)(std::pow(i / 255.0, 1.0 / (img.gamma * screen_gamma)) * 255.0 + 0.5);
	int dx = img.width, dy = img.height, os_x = 0, os_y = 0;
	const float scale = get_scale(path, index, type, &dx, &dy, &os_x, &os_y, full_width);
	if (scale <= 0.0f) return 0;
	const int fw = img.width, fh = img.height;
	auto src = [&](int row_from_bottom, int col) { return scratch_array_temp + ((size_t)(fh - 1 - row_from_bottom) * fw + col) * 4; };
	const bool over = type == tex_panel_instrument || type == tex_panel_layer;
	if (!over) std::memset(scratch_array, 0, scratch_bytes - 15);
	const int stride = *full_width;
	for (int j = 0; j < dy; j++)
		for (int i = 0; i < dx; i++) {
			const int sy = std::min((int)(j / scale), fh - 1), sx = std::min((int)(i / scale), fw - 1);
			const unsigned char* s = src(sy, sx);
			const int y = os_y + j, x = os_x + i;
			if (y < 0 || x < 0 || y >= 1024 || x >= stride) continue;
			unsigned char* d = scratch_array + ((size_t)y * stride + x) * bytes;
			const unsigned char rgb[3] = {gamma[s[0]], gamma[s[1]], gamma[s[2]]};
			const bool hole = key_magenta && s[0] == 255 && s[1] == 0 && s[2] == 255;
			if (over) {   // the layer over what is there, coverage adding up
				if (s[3] == 0 || hole) continue;
				const float a = s[3] / 255.0f;
				for (int c = 0; c < 3; c++) d[c] = (unsigned char)(rgb[c] * a + d[c] * (1.0f - a) + 0.5f);
				if (bytes == 4) d[3] = (unsigned char)std::min(255, s[3] + d[3]);
				continue;
			}
			if (bytes == 1) {   // one channel: the alpha the file has, else the brightness
				d[0] = img.has_alpha ? s[3] : (unsigned char)((rgb[0] + rgb[1] + rgb[2]) / 3);
				continue;
			}
			for (int c = 0; c < 3; c++) d[c] = rgb[c];
			if (bytes == 4) d[3] = hole ? 0 : s[3];
		}
	return 1;
}
