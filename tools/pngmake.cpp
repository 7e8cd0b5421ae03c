// pngmake: writes an RGBA PNG from a readable drawing description, so that no binary
// image is kept in the repository.
//   size W H           the image, at most 4096 x 4096
//   fill R G B A       the whole image
//   rect X Y W H R G B A   a rectangle, X and Y from the top left
// Blank lines and lines starting with '#' are skipped.
#include <png.h>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

int main(int argc, char** argv)
{
	if (argc != 3) { std::fprintf(stderr, "usage: pngmake SOURCE.txt OUT.png\n"); return 2; }
	std::ifstream in(argv[1]);
	if (!in) { std::fprintf(stderr, "pngmake: cannot read %s\n", argv[1]); return 1; }
	int w = 0, h = 0, line_no = 0;
	std::vector<unsigned char> px;
	std::string line;
	auto put = [&](int x, int y, const int c[4]) {
		if (x < 0 || y < 0 || x >= w || y >= h) return;
		for (int k = 0; k < 4; k++) px[(size_t)(y * w + x) * 4 + k] = (unsigned char)c[k];
	};
	while (std::getline(in, line)) {
		line_no++;
		std::istringstream ss(line);
		std::string op;
		if (!(ss >> op) || op[0] == '#') continue;
		int v[8] = {};
		int want = op == "size" ? 2 : op == "fill" ? 4 : op == "rect" ? 8 : -1;
		int got = 0;
		while (got < want && ss >> v[got]) got++;
		if (want < 0 || got != want || (op != "size" && w == 0)) {
			std::fprintf(stderr, "pngmake: %s:%d: cannot read \"%s\"\n", argv[1], line_no, line.c_str());
			return 1;
		}
		for (int k = (op == "size" ? 0 : want - 4); k < want && op != "size"; k++)
			if (v[k] < 0 || v[k] > 255) { std::fprintf(stderr, "pngmake: %s:%d: colour out of 0..255\n", argv[1], line_no); return 1; }
		if (op == "size") {
			if (v[0] < 1 || v[1] < 1 || v[0] > 4096 || v[1] > 4096) { std::fprintf(stderr, "pngmake: %s:%d: bad size\n", argv[1], line_no); return 1; }
			w = v[0]; h = v[1];
			px.assign((size_t)w * h * 4, 0);
		} else if (op == "fill") {
			for (int y = 0; y < h; y++) for (int x = 0; x < w; x++) put(x, y, v);
		} else {
			for (int y = v[1]; y < v[1] + v[3]; y++) for (int x = v[0]; x < v[0] + v[2]; x++) put(x, y, v + 4);
		}
	}
	if (!w) { std::fprintf(stderr, "pngmake: %s: no size\n", argv[1]); return 1; }
	FILE* out = std::fopen(argv[2], "wb");
	if (!out) { std::fprintf(stderr, "pngmake: cannot write %s\n", argv[2]); return 1; }
	png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
	png_infop info = png_create_info_struct(png);
	if (setjmp(png_jmpbuf(png))) { std::fclose(out); return 1; }
	png_init_io(png, out);
	png_set_IHDR(png, info, w, h, 8, PNG_COLOR_TYPE_RGBA, PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
	png_write_info(png, info);
	for (int y = 0; y < h; y++) png_write_row(png, &px[(size_t)y * w * 4]);
	png_write_end(png, nullptr);
	png_destroy_write_struct(&png, &info);
	std::fclose(out);
	return 0;
}
