#include "aircraft/acf_io.h"
#include "aircraft/acf_text.h"
#include "core/HL_MAIN.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "core/files.h"
#include <cstring>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <random>
#include <sstream>
#include <string>

namespace {

veh_struct a, b, keep;

struct AircraftFile : ::testing::Test {
	std::string dir = std::string(NIMBARA_TEST_TREE) + "/" +
	                  ::testing::UnitTest::GetInstance()->current_test_info()->name() + "/";
	void SetUp() override
	{
		std::filesystem::remove_all(dir);
		std::filesystem::create_directories(dir + "Aircraft/Test");
		zero_all_records();
		init_con();
		app_path = dir;
		afl_path = std::string(NIMBARA_DATA_TREE) + "/Airfoils/";
		std::memset(&a, 0, sizeof a);
		std::memset(&b, 0, sizeof b);
	}
	// Every stored field filled with random bits; the padding the layout leaves stays zero.
	static void randomise(veh_struct& v, unsigned seed)
	{
		std::mt19937 rng(seed);
		std::memset(&v, 0, sizeof v);
		unsigned char* p = (unsigned char*)&v;
		for (int f = 0; f < veh_field_count; f++) {
			const veh_field_info& fi = veh_fields[f];
			if (fi.offset >= acf_image_size) break;
			for (size_t k = 0; k < fi.size; k++) p[fi.offset + k] = (unsigned char)(rng() % 3 ? 0 : rng());
		}
	}
	std::string bytes(const std::string& path)
	{
		std::ifstream in(path, std::ios::binary);
		return std::string(std::istreambuf_iterator<char>(in), {});
	}
	// A small glider-like record that the loader accepts: two wing halves on a named airfoil.
	void simple_aircraft(veh_struct& v)
	{
		std::memset(&v, 0, sizeof v);
		v.Vne_kts = 150.0f;
		v.m_empty = 600.0f;
		v.m_max = 1000.0f;
		v.h_eqlbm = 2.0f;
		std::snprintf(v.tailnum, sizeof v.tailnum, "N1234");
		for (int en : {8, 9}) {
			v.part_eq[en] = 1;
			v.els[en] = 2;
			v.Croot[en] = 3.0f;
			v.Ctip[en] = 2.0f;
			v.semilen_SEG[en] = 20.0f;
			for (auto* s : {v.Rafl0[en], v.Rafl1[en], v.Tafl0[en], v.Tafl1[en]})
				std::snprintf(s, 40, "NACA 0009 (symmetrical).afl");
		}
	}
	void place(int p, const std::string& file)
	{
		std::snprintf(veh[p].path, 500, "%s", (dir + "Aircraft:Test:" + file).c_str());
		std::snprintf(veh[p].name, 500, "%s", file.c_str());
	}
};

}  // namespace

TEST_F(AircraftFile, FieldsTileTheStoredImage)
{
	size_t end = 0;
	for (int f = 0; f < veh_field_count && veh_fields[f].offset < acf_image_size; f++) {
		const veh_field_info& fi = veh_fields[f];
		EXPECT_GE(fi.offset, end) << fi.name;                 // no overlap
		EXPECT_LT(fi.offset - end, 4u) << fi.name;            // at most alignment padding between
		size_t n = fi.type == vf_char ? 1 : 4;
		for (int k = 0; k < 4 && fi.dims[k]; k++) n *= fi.dims[k];
		EXPECT_EQ(fi.size, n) << fi.name;
		end = fi.offset + fi.size;
	}
	EXPECT_EQ(end, acf_image_size);
	EXPECT_STREQ(ret_veh_field("Vne_kts")->unit, "kt");
	EXPECT_STREQ(ret_veh_field("body_X")->unit, "ft");
	EXPECT_EQ(ret_veh_field("nothing"), nullptr);
}

TEST_F(AircraftFile, TextAndBinaryRoundTripsKeepEveryByte)
{
	for (unsigned seed = 1; seed <= 2; seed++) {
		randomise(a, seed);
		std::stringstream text;
		acf_write_text(a, text);
		std::string err;
		ASSERT_EQ(acf_read_text(text, "random", b, err), 1) << err;
		ASSERT_EQ(std::memcmp(&a, &b, acf_image_size), 0) << "seed " << seed;

		a.is_APL = 0;
		const std::string f1 = dir + "one.acf", f2 = dir + "two.acf";
		ASSERT_EQ(acf_write_image(f1.c_str(), a, 0), 1);
		EXPECT_EQ(std::filesystem::file_size(f1), acf_file_size);
		ASSERT_EQ(acf_read_image(f1.c_str(), b, nullptr), 1);
		ASSERT_EQ(std::memcmp(&a, &b, acf_image_size), 0);
		// dump, then build: the same file, byte for byte.
		std::stringstream dumped;
		acf_write_text(b, dumped);
		ASSERT_EQ(acf_read_text(dumped, "dumped", b, err), 1) << err;
		ASSERT_EQ(acf_write_image(f2.c_str(), b, 0), 1);
		EXPECT_EQ(bytes(f1), bytes(f2));
	}
}

TEST_F(AircraftFile, TheOtherByteOrderReadsIntoTheSameRecord)
{
	randomise(a, 99);
	a.is_APL = 0;
	std::snprintf(a.tailnum, 40, "N42XY");
	std::snprintf(a.ICAO, 40, "GLID");
	a.Vne_kts = 145.25f;
	a.num_engines = 3;
	const std::string big = dir + "big.acf";
	ASSERT_EQ(acf_write_image(big.c_str(), a, 1), 1);
	std::string raw = bytes(big);
	ASSERT_EQ(raw.size(), acf_file_size);
	EXPECT_EQ(raw.substr(0, 5), std::string("a\0\0\x02\xE4", 5));
	EXPECT_EQ((unsigned char)raw[5 + 3], 1);   // is_APL, big-endian
	ASSERT_EQ(acf_read_image(big.c_str(), b, nullptr), 1);
	EXPECT_EQ(b.is_APL, 1);                    // it came from the other byte order
	b.is_APL = 0;
	EXPECT_EQ(std::memcmp(&a, &b, acf_image_size), 0);
	EXPECT_STREQ(b.tailnum, "N42XY");          // text keeps its byte order
	EXPECT_STREQ(b.ICAO, "GLID");
	EXPECT_EQ(b.Vne_kts, 145.25f);
	// Little-endian: the number where the layout says.
	const std::string little = dir + "little.acf";
	ASSERT_EQ(acf_write_image(little.c_str(), a, 0), 1);
	raw = bytes(little);
	float v;
	std::memcpy(&v, raw.data() + 5 + 2072, 4);
	EXPECT_EQ(v, 145.25f);
	EXPECT_EQ(raw.substr(0, 5), std::string("i\xE4\x02\0\0", 5));
}

TEST_F(AircraftFile, TextMistakesNameTheFileAndLine)
{
	const char* bad[][2] = {
		{"Vne_kts 150\nnot_a_field 3\n", "t.txt:2: unknown field 'not_a_field'"},
		{"engn_type[8] 1\n", "t.txt:1: index 8 of 'engn_type' is outside 0..7"},
		{"engn_type 1\n", "t.txt:1: 'engn_type' takes 1 index(es)"},
		{"Vne_kts[0] 1\n", "t.txt:1: 'Vne_kts' takes 0 index(es)"},
		{"\n# fine\nVne_kts 1.5x\n", "t.txt:3: bad number '1.5x'"},
		{"num_engines 99999999999\n", "t.txt:1: '99999999999' is outside the range of an int"},
		{"tailnum \"abc\n", "t.txt:1: the text has no closing quote"},
		{"ICAO \"0123456789012345678901234567890123456789X\"\n", "t.txt:1: text longer than 40 bytes"},
		{"a_xyz[0][0][0][0] 1\n", "t.txt:1: 'a_xyz' is built at load and not stored"},
		{"Vne_kts\n", "t.txt:1: no value for 'Vne_kts'"},
		{"is_hm 300\n", "t.txt:1: 'is_hm' takes 0..255"},
	};
	for (auto& c : bad) {
		randomise(b, 5);
		std::memcpy(&keep, &b, sizeof b);
		std::stringstream in(c[0]);
		std::string err;
		EXPECT_EQ(acf_read_text(in, "t.txt", b, err), 0) << c[0];
		EXPECT_EQ(err, c[1]);
		EXPECT_EQ(std::memcmp(&keep, &b, sizeof b), 0) << "a rejected text changed the record";
	}
}

TEST_F(AircraftFile, LoadingReplacesNameAndPathAndLoadsTheAirfoils)
{
	simple_aircraft(a);
	std::snprintf(a.name, 500, "stored name");
	ASSERT_EQ(acf_write_image((dir + "Aircraft/Test/Glider.acf").c_str(), a, 0), 1);
	place(0, "Glider.acf");
	ASSERT_EQ(IO_acf(0, 0, 1), 1);
	EXPECT_STREQ(veh[0].name, "Glider.acf");
	EXPECT_EQ(std::string(veh[0].path), dir + "Aircraft:Test:Glider.acf");
	EXPECT_EQ(veh[0].Vne_kts, 150.0f);
	EXPECT_EQ(veh[0].cockpit_M, -1);
	// Both Reynolds columns hold the same number: they are spread to 0 and 99.9.
	EXPECT_EQ(veh[0].afl[8].re_num[0][0], 0.0f);
	EXPECT_FLOAT_EQ(veh[0].afl[8].re_num[1][1], 99.9f);
	EXPECT_FLOAT_EQ(veh[0].afl[9].cd[0][0][(int)afl_index_of_alpha(90.0f)], 1.28f);
	EXPECT_EQ(veh[0].afl[10].cd[0][0][100], 0.0f);   // a part not there loads nothing
	// The path's case need not match the program folder's.
	std::string upper = dir;
	for (char& ch : upper) ch = (char)std::toupper((unsigned char)ch);
	app_path = upper;
	ASSERT_EQ(IO_acf(0, 0, 1), 1);
}

TEST_F(AircraftFile, ARejectedFileLeavesTheLoadedAircraft)
{
	simple_aircraft(a);
	ASSERT_EQ(acf_write_image((dir + "Aircraft/Test/Good.acf").c_str(), a, 0), 1);
	place(1, "Good.acf");
	ASSERT_EQ(IO_acf(0, 1, 1), 1);
	std::string good = bytes(dir + "Aircraft/Test/Good.acf");
	auto try_file = [&](const std::string& content, const char* label) {
		std::ofstream(dir + "Aircraft/Test/Bad.acf", std::ios::binary) << content;
		std::memcpy(&keep, &veh[1], sizeof keep);
		place(1, "Bad.acf");
		std::memcpy(keep.path, veh[1].path, 500);
		std::memcpy(keep.name, veh[1].name, 500);
		int r = -1;
		try { r = IO_acf(0, 1, 1); } catch (const XFatalAlert&) { r = 0; }
		EXPECT_EQ(r, 0) << label;
		EXPECT_EQ(std::memcmp(&keep, &veh[1], sizeof keep), 0) << label;
	};
	try_file(good.substr(0, 1000), "truncated");
	try_file(good + "x", "too long");
	std::string wrong = good;
	wrong[1] = (char)0xE5;
	try_file(wrong, "wrong version");
	try_file("garbage", "garbage");
	try_file("", "empty");
	std::string no_foil = good;
	no_foil[5 + 11244 + 8 * 40] = 'X';   // Rafl0[8] names an airfoil that is not there
	try_file(no_foil, "missing airfoil");
	EXPECT_NE(last_alert_text.find("An airfoil file could not be found!"), std::string::npos);
	// Outside the program's folder: refused without a word.
	std::snprintf(veh[1].path, 500, "/elsewhere/Good.acf");
	EXPECT_EQ(IO_acf(0, 1, 1), 0);
	EXPECT_EQ(IO_acf(7, 1, 1), 0);
	g_done = 0;
}

TEST_F(AircraftFile, CorruptFilesNeverCrashTheReader)
{
	simple_aircraft(a);
	ASSERT_EQ(acf_write_image((dir + "Aircraft/Test/Good.acf").c_str(), a, 0), 1);
	place(2, "Good.acf");
	ASSERT_EQ(IO_acf(0, 2, 1), 1);
	const std::string good = bytes(dir + "Aircraft/Test/Good.acf");
	std::mt19937 rng(740);
	int accepted = 0, refused = 0;
	for (int n = 0; n < 400; n++) {
		std::string m = good;
		switch (n % 4) {
		case 0: m.resize(rng() % m.size()); break;
		case 1: for (int k = 0; k < 16; k++) m[rng() % m.size()] = (char)rng(); break;
		case 2: for (int k = 0; k < 4; k++) m[5 + 11244 + rng() % (22924 - 11244)] = (char)rng(); break;   // the airfoil names
		default: m[rng() % 5] = (char)rng(); break;   // the header
		}
		std::ofstream(dir + "Aircraft/Test/M.acf", std::ios::binary) << m;
		std::memcpy(&keep, &veh[2], sizeof keep);
		place(2, "M.acf");
		std::memcpy(keep.path, veh[2].path, 500);
		std::memcpy(keep.name, veh[2].name, 500);
		int r = 0;
		try { r = IO_acf(0, 2, 1); } catch (const XFatalAlert&) { r = 0; }
		if (r) accepted++;
		else {
			refused++;
			ASSERT_EQ(std::memcmp(&keep, &veh[2], sizeof keep), 0) << "input " << n;
		}
	}
	EXPECT_GT(accepted, 50);
	EXPECT_GT(refused, 50);
	g_done = 0;
}
