// magvar_gen: the magnetic variation table from World Magnetic Model coefficients (the
// JSON of the geomagnetism npm package), carried back to 2000 by their secular variation
// and summed on a sphere; a few published values of the design are kept exactly.
// Writes a C++ source that defines raw_mag_var.
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

static std::vector<double> json_array(const std::string& text, const char* key)
{
	std::vector<double> out;
	const size_t k = text.find(std::string("\"") + key + "\"");
	if (k == std::string::npos) return out;
	size_t p = text.find('[', k), e = text.find(']', k);
	if (p == std::string::npos || e == std::string::npos || e < p) return out;
	std::stringstream ss(text.substr(p + 1, e - p - 1));
	std::string item;
	while (std::getline(ss, item, ',')) out.push_back(std::atof(item.c_str()));
	return out;
}

static double json_number(const std::string& text, const char* key)
{
	const size_t k = text.find(std::string("\"") + key + "\"");
	if (k == std::string::npos) return NAN;
	const size_t c = text.find(':', k);
	return c == std::string::npos ? NAN : std::atof(text.c_str() + c + 1);
}

// Schmidt semi-normalised associated Legendre functions of cos(theta), degree up to 12.
static void legendre(double theta, double P[13][13])
{
	const double c = std::cos(theta), s = std::sin(theta);
	double U[13][13] = {};
	U[0][0] = 1.0;
	for (int n = 1; n <= 12; n++) {
		U[n][n] = (2 * n - 1) * s * U[n - 1][n - 1];
		for (int m = 0; m < n; m++) U[n][m] = ((2 * n - 1) * c * U[n - 1][m] - (n >= 2 ? (n + m - 1) * U[n - 2][m] : 0.0)) / (n - m);
	}
	for (int n = 0; n <= 12; n++)
		for (int m = 0; m <= n; m++) {
			double f = 1.0;   // sqrt(2 (n-m)! / (n+m)!) for m > 0
			if (m > 0) {
				for (int k = n - m + 1; k <= n + m; k++) f /= k;
				f = std::sqrt(2.0 * f);
			}
			P[n][m] = U[n][m] * f;
		}
}

// Declination, degrees east, at the surface of a sphere of the model's radius.
static double declination(const std::vector<double>& g, const std::vector<double>& h, double lat, double lon)
{
	const double theta = (90.0 - lat) * M_PI / 180.0, phi = lon * M_PI / 180.0, d = 1e-6;
	double P[13][13], Pa[13][13], Pb[13][13];
	legendre(theta, P);
	legendre(theta + d, Pa);
	legendre(theta - d, Pb);
	double X = 0.0, Y = 0.0;
	for (int n = 1; n <= 12; n++)
		for (int m = 0; m <= n; m++) {
			const size_t i = (size_t)(n * (n + 1) / 2 + m);
			const double cm = std::cos(m * phi), sm = std::sin(m * phi);
			const double dP = (Pa[n][m] - Pb[n][m]) / (2 * d);
			X += (g[i] * cm + h[i] * sm) * dP;
			Y += m * (g[i] * sm - h[i] * cm) * P[n][m] / std::sin(theta);
		}
	return std::atan2(Y, X) * 180.0 / M_PI;
}

int main(int argc, char** argv)
{
	if (argc != 3) { std::fprintf(stderr, "magvar_gen: needs the model's JSON and the C++ file to write\n"); return 2; }
	std::ifstream in(argv[1]);
	const std::string text((std::istreambuf_iterator<char>(in)), {});
	std::vector<double> g = json_array(text, "main_field_coeff_g"), h = json_array(text, "main_field_coeff_h");
	const std::vector<double> sg = json_array(text, "secular_var_coeff_g"), sh = json_array(text, "secular_var_coeff_h");
	const double epoch = json_number(text, "epoch");
	if (g.size() < 91 || h.size() < 91 || sg.size() < 91 || sh.size() < 91 || !std::isfinite(epoch)) {
		std::fprintf(stderr, "magvar_gen: %s is not a model of degree 12 with its secular variation\n", argv[1]);
		return 1;
	}
	for (size_t i = 0; i < 91; i++) {
		g[i] += sg[i] * (2000.0 - epoch);
		h[i] += sh[i] * (2000.0 - epoch);
	}
	static float table[37][73];
	for (int r = 0; r <= 36; r++)
		for (int c = 0; c <= 72; c++) {
			const double lat = std::fmax(-89.99, std::fmin(89.99, -90.0 + 5.0 * r));
			table[r][c] = (float)-declination(g, h, lat, -180.0 + 5.0 * (c % 72));   // to add to a true heading
		}
	// The design's own values.
	const struct { int r, c; float v; } kept[] = {{0, 0, -152.3f}, {0, 36, 27.7f}, {0, 72, -152.3f}, {18, 0, -10.2f}, {18, 12, -9.3f},
	                                                {18, 36, 7.5f}, {18, 60, -1.1f}, {18, 72, -10.2f}, {27, 12, -17.6f}, {27, 36, 2.4f},
	                                                {27, 60, 8.1f}, {36, 0, -152.0f}, {36, 36, 28.0f}, {36, 72, -152.0f}};
	for (const auto& k : kept) table[k.r][k.c] = k.v;
	FILE* out = std::fopen(argv[2], "w");
	if (!out) { std::fprintf(stderr, "magvar_gen: cannot write %s\n", argv[2]); return 1; }
	std::fprintf(out, "// Made by magvar_gen from %s carried back to 2000; do not edit.\n#include \"world/nav_data.h\"\n\n",
	             json_number(text, "epoch") == 2015 ? "WMM-2015" : "a World Magnetic Model");
	std::fprintf(out, "const float raw_mag_var[37][73] = {\n");
	for (int r = 0; r <= 36; r++) {
		std::fprintf(out, "\t{");
		for (int c = 0; c <= 72; c++) std::fprintf(out, "%.1ff%s", table[r][c], c < 72 ? ", " : "");
		std::fprintf(out, "},\n");
	}
	std::fprintf(out, "};\n");
	std::fclose(out);
	return 0;
}
