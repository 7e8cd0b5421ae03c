// framewright airfoil: make an airfoil file from shape parameters, and evaluate one
// through the flight model's lookup.
#include "tools/framewright/framewright.h"
#include "aircraft/airfoil.h"
#include "core/HL_MATH_FUN.h"
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

static airfoil_struct afl;

struct param { const char* name; float* slot; };

static std::vector<param> params_of(airfoil_struct& a)
{
	return {{"re_num", &a.re_num[0][0]}, {"t_rat", &a.t_rat[0]}, {"mach_div", &a.mach_div[0]},
	        {"clM", &a.clM[0][0]}, {"clB", &a.clB[0][0]}, {"almin", &a.almin[0][0]}, {"almax", &a.almax[0][0]},
	        {"Llinrange", &a.Llinrange}, {"Lpow", &a.Lpow}, {"Lstall", &a.Lstall}, {"Ldrop1", &a.Ldrop1},
	        {"Lpowstl", &a.Lpowstl}, {"Ldrop2", &a.Ldrop2}, {"Dmin", &a.Dmin}, {"DminCL", &a.DminCL},
	        {"Dal10", &a.Dal10}, {"Dpow", &a.Dpow}, {"Bloc", &a.Bloc}, {"Bwidth", &a.Bwidth},
	        {"Bdepth", &a.Bdepth}, {"Bpower", &a.Bpower}, {"cmal2", &a.cmal2}, {"cmal3", &a.cmal3},
	        {"cm1", &a.cm1}, {"cm2", &a.cm2}, {"cm3", &a.cm3}, {"cm4", &a.cm4}};
}

static int airfoil_gen(const char* src, const char* out)
{
	std::ifstream in(src);
	if (!in) { std::fprintf(stderr, "framewright: cannot read %s\n", src); return 1; }
	std::map<std::string, float> got;
	std::string line;
	int line_no = 0;
	while (std::getline(in, line)) {
		line_no++;
		line = line.substr(0, line.find('#'));
		std::istringstream ss(line);
		std::string key;
		if (!(ss >> key)) continue;
		float v;
		std::string rest;
		if (!(ss >> v) || (ss >> rest) || !std::isfinite(v)) {
			std::fprintf(stderr, "framewright: %s:%d: expected a name and one number\n", src, line_no);
			return 1;
		}
		got[key] = v;
	}
	std::memset(&afl, 0, sizeof afl);
	int missing = 0;
	for (const param& p : params_of(afl)) {
		auto it = got.find(p.name);
		if (it == got.end()) { std::fprintf(stderr, "framewright: %s: no value for %s\n", src, p.name); missing = 1; continue; }
		*p.slot = it->second;
		got.erase(it);
	}
	for (const auto& kv : got) { std::fprintf(stderr, "framewright: %s: unknown parameter %s\n", src, kv.first.c_str()); missing = 1; }
	if (missing) return 1;
	if (afl.clM[0][0] <= 0.0f) { std::fprintf(stderr, "framewright: %s: clM must be above 0\n", src); return 1; }
	gen_cl_cd_cm(&afl, 0, 0);
	if (!IO_afl(1, &afl, 0, 0, out)) { std::fprintf(stderr, "framewright: cannot write %s\n", out); return 1; }
	return 0;
}

static int airfoil_eval(const char* file, float re, const std::vector<float>& alphas)
{
	std::memset(&afl, 0, sizeof afl);
	if (!IO_afl(0, &afl, 0, 0, file)) { std::fprintf(stderr, "framewright: cannot read %s as an airfoil\n", file); return 1; }
	// The same section in both Reynolds slots.
	afl.re_num[0][1] = afl.re_num[0][0];
	std::memcpy(afl.cl[0][1], afl.cl[0][0], sizeof afl.cl[0][0]);
	std::memcpy(afl.cd[0][1], afl.cd[0][0], sizeof afl.cd[0][0]);
	std::memcpy(afl.cm[0][1], afl.cm[0][0], sizeof afl.cm[0][0]);
	std::printf("alpha cl cd cm\n");
	for (float a : alphas) {
		float cl, cd, cm;
		afl_re_blend(&afl, 0, re / 1.0e6f, a, &cl, &cd, &cm);
		std::printf("%g %.5f %.5f %.5f\n", a, cl, cd, cm);
	}
	return 0;
}

int framewright_airfoil(int argc, char** argv)
{
	if (argc == 4 && !std::strcmp(argv[1], "gen")) return airfoil_gen(argv[2], argv[3]);
	if (argc >= 3 && !std::strcmp(argv[1], "eval")) {
		float re = NAN;
		std::vector<float> alphas;
		for (int k = 3; k < argc; k++) {
			if (!std::strcmp(argv[k], "--re") && k + 1 < argc) {
				char* end;
				re = std::strtof(argv[++k], &end);
				if (*end || !(re > 0.0f) || !std::isfinite(re)) { std::fprintf(stderr, "framewright: --re takes a Reynolds number above 0\n"); return 2; }
			} else if (!std::strcmp(argv[k], "--alpha") && k + 1 < argc) {
				std::stringstream ss(argv[++k]);
				std::string item;
				while (std::getline(ss, item, ',')) {
					char* end;
					float a = std::strtof(item.c_str(), &end);
					if (item.empty() || *end || !std::isfinite(a)) { std::fprintf(stderr, "framewright: bad angle '%s'\n", item.c_str()); return 2; }
					alphas.push_back(a);
				}
			} else {
				std::fprintf(stderr, "framewright: unknown option '%s'\n", argv[k]);
				return 2;
			}
		}
		if (!(re > 0.0f) || alphas.empty()) { std::fprintf(stderr, "framewright: eval needs --re RE and --alpha A[,A...]\n"); return 2; }
		return airfoil_eval(argv[2], re, alphas);
	}
	std::fprintf(stderr, "framewright: airfoil gen PARAMS OUT.afl | airfoil eval FILE.afl --re RE --alpha A[,A...]\n");
	return 2;
}
