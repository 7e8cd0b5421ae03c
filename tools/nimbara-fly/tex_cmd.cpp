// nimbara-fly tex: an image file through the texture loader into the driver, as the
// simulator would load it under an id; the driver's texels or the composed panel written out.
#include "tools/nimbara-fly/nimbara_fly.h"
#include "core/HL_MAIN.h"
#include "core/HL_TYPES.h"
#include "core/files.h"
#include "platform/plat.h"
#include "render/HL_GRAPH.h"
#include "render/textures.h"
#include <GL/gl.h>
#include <png.h>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace {

int parse_int(const char* s, int lo, int hi, int* v)
{
	char* end = nullptr;
	const long n = std::strtol(s, &end, 10);
	if (!*s || *end || n < lo || n > hi) return 0;
	*v = (int)n;
	return 1;
}

std::string folder_of(const std::string& path)
{
	const size_t slash = path.find_last_of('/');
	return slash == std::string::npos ? "./" : path.substr(0, slash + 1);
}

}  // namespace

// RGBA rows, the first written at the top of the picture.
int fly_write_png(const char* path, const unsigned char* rgba, int w, int h, bool bottom_up)
{
	std::FILE* f = std::fopen(path, "wb");
	if (!f) return 0;
	png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
	png_infop info = png ? png_create_info_struct(png) : nullptr;
	if (!png || !info || setjmp(png_jmpbuf(png))) {
		png_destroy_write_struct(&png, &info);
		std::fclose(f);
		return 0;
	}
	png_init_io(png, f);
	png_set_IHDR(png, info, (png_uint_32)w, (png_uint_32)h, 8, PNG_COLOR_TYPE_RGBA, PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT,
	             PNG_FILTER_TYPE_DEFAULT);
	png_write_info(png, info);
	for (int y = 0; y < h; y++) png_write_row(png, rgba + (size_t)(bottom_up ? h - 1 - y : y) * w * 4);
	png_write_end(png, info);
	png_destroy_write_struct(&png, &info);
	return std::fclose(f) == 0;
}

int fly_tex(int argc, char** argv)
{
	if (argc < 2 || argv[1][0] == '-') { std::fprintf(stderr, "nimbara-fly: tex needs a FILE\n"); return 2; }
	const std::string file = argv[1];
	int id = -1, type = tex_load, filter = filt_rgb, tex_res = 4, level = 0;
	std::string png_out, bmp_out;
	std::vector<std::string> layers;
	for (int k = 2; k < argc; k++) {
		const std::string o = argv[k];
		if (k + 1 >= argc) { std::fprintf(stderr, "nimbara-fly: %s needs a value\n", o.c_str()); return 2; }
		const char* val = argv[++k];
		int ok = 1;
		if (o == "--id") ok = parse_int(val, 0, tex_id_max - 1, &id);
		else if (o == "--type") ok = parse_int(val, -104, -100, &type);
		else if (o == "--filter") ok = parse_int(val, -113, -107, &filter);
		else if (o == "--tex-res") ok = parse_int(val, 0, 4, &tex_res);
		else if (o == "--level") ok = parse_int(val, 0, 10, &level);
		else if (o == "--over") layers.emplace_back(val);
		else if (o == "--png") png_out = val;
		else if (o == "--bmp") bmp_out = val;
		else { std::fprintf(stderr, "nimbara-fly: unknown option '%s'\n", o.c_str()); return 2; }
		if (!ok) { std::fprintf(stderr, "nimbara-fly: bad value '%s' for %s\n", val, o.c_str()); return 2; }
	}
	if (id < 0) { std::fprintf(stderr, "nimbara-fly: tex needs --id\n"); return 2; }
	if (!plat_offscreen_open(64, 64)) { std::fprintf(stderr, "nimbara-fly: cannot draw: %s\n", plat_offscreen_error()); return 1; }
	OGL_report_situation();
	mnw.tex_res = tex_res;
	bmp_path = folder_of(file);
	const int alerts = alert_count;
	int got = 0;
	if (layers.empty()) {
		got = OGL_texbmp(type, id, filter, file);
	} else {   // a panel: the base, each layer over it, then shown under the id as the panel is
		got = OGL_texbmp(tex_panel_base, id, filt_key_magenta, file);
		for (const std::string& l : layers) {
			bmp_path = folder_of(l);
			got = got && OGL_texbmp(tex_panel_layer, id, filt_key_magenta, l);
		}
		if (got) {
			std::memcpy(cockpit_array[0], scratch_array, 1024 * 1024 * 4);
			ren.tex_dx_tot[id] = ren.tex_dy_tot[id] = 1024;
			OGL_load_tex(file, id, 0, filt_rgb, GL_RGBA, cockpit_array[0]);
		}
	}
	if (!got || alert_count != alerts) {
		if (!got && alert_count == alerts) std::fprintf(stderr, "nimbara-fly: no picture at %s\n", file.c_str());
		plat_offscreen_close();
		return 1;
	}
	std::printf("%d %d %d %d %u\n", ren.tex_dx_vis[id], ren.tex_dy_vis[id], ren.tex_dx_tot[id], ren.tex_dy_tot[id], ren.tex_vram[id]);
	int status = 0;
	glBindTexture(GL_TEXTURE_2D, (GLuint)id);
	if (!png_out.empty()) {
		GLint w = 0, h = 0;
		glGetTexLevelParameteriv(GL_TEXTURE_2D, level, GL_TEXTURE_WIDTH, &w);
		glGetTexLevelParameteriv(GL_TEXTURE_2D, level, GL_TEXTURE_HEIGHT, &h);
		if (w < 1 || h < 1) {
			std::fprintf(stderr, "nimbara-fly: the texture has no level %d\n", level);
			status = 1;
		} else {
			glPixelStorei(GL_PACK_ALIGNMENT, 1);
			glGetTexImage(GL_TEXTURE_2D, level, GL_RGBA, GL_UNSIGNED_BYTE, scratch_array_temp);
			if (!fly_write_png(png_out.c_str(), scratch_array_temp, w, h, true)) { std::fprintf(stderr, "nimbara-fly: cannot write %s\n", png_out.c_str()); status = 1; }
		}
	}
	if (!bmp_out.empty()) {
		int w = ren.tex_dx_tot[id], h = ren.tex_dy_tot[id];
		if (!layers.empty()) {   // the composed panel, packed to RGB in place
			for (size_t k = 0; k < (size_t)1024 * 1024; k++)
				for (int c = 0; c < 3; c++) scratch_array[k * 3 + c] = scratch_array[k * 4 + c];
			w = h = 1024;
		} else {
			glPixelStorei(GL_PACK_ALIGNMENT, 1);
			glGetTexImage(GL_TEXTURE_2D, 0, GL_RGB, GL_UNSIGNED_BYTE, scratch_array);
		}
		if (!OGL_make_bmp(bmp_out, w, h)) status = 1;
	}
	plat_offscreen_close();
	return status;
}
