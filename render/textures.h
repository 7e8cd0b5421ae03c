// Image files into textures under fixed ids, and the panel composed in the scratch buffer.
#pragma once
#include <string>

// Where the pixels go.
enum { tex_load = -100, tex_scratch_only = -101, tex_panel_base = -102, tex_panel_instrument = -103, tex_panel_layer = -104 };
// Mipmaps, channels and alpha.
enum {
	filt_rgb = -107, filt_rgb_mip = -108, filt_key_magenta = -109, filt_alpha_mean = -110,
	filt_key_magenta_mip = -111, filt_alpha_mean_mip = -112, filt_alpha_only_mip = -113
};

constexpr int scratch_bytes = 1024 * 1024 * 4 + 15;
extern unsigned char* scratch_array;        // the picture being assembled, row 0 at the bottom; 16-byte aligned
extern unsigned char scratch_array_temp[scratch_bytes];   // file rows to resample or compose
extern unsigned char* cockpit_array[9];     // the finished panels, 1024 by 1024 RGBA, one a panel index
extern unsigned char win_gamma[256];          // (i / 255) to the power 0.818181818, of 255

int OGL_texbmp(int type, int index, int filter_type, const std::string& hard_path);
bool tex_forces_key(int index);   // propellers and part layers take the magenta key whatever the caller says
float get_scale(const std::string& path, int index, int type, int* dx, int* dy, int* os_x, int* os_y, int* full_width);
// key_magenta: pure magenta is see-through, as in the bitmaps, whatever the file's alpha.
int load_png_into_scratch(const std::string& path, int index, int type, int bytes, int* full_width, bool key_magenta = false);
int load_bmp_into_scratch(const std::string& path, int index, int type, int bytes, int filter_type, int* full_width);
void OGL_load_tex(const std::string& path, int index, int reduction, int filter_type, int rgb_type, unsigned char* array);
void OGL_mini_me(const std::string& path, int index, int filter_type, int rgb_type, unsigned char* array);
int OGL_make_bmp(const std::string& path, int dx, int dy);   // 1 when written

int check_dx(const std::string& path, int dx);
int check_dy(const std::string& path, int dy);
int check_type(const std::string& path, int type);
int check_index(const std::string& path, int index);
int check_filter_type(const std::string& path, int filter_type);
int check_bytes(const std::string& path, int bytes);
int check_rgb_type(const std::string& path, int rgb_type);
std::string tex_file_path(const std::string& path, const char* ext);   // the extension swapped, a host path
void tex_alert(const char* what, const char* more, const std::string& path);   // a notice with the file's path
