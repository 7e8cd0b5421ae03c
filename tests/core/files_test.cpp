#include "core/files.h"
#include "core/HL_MAIN.h"
#include "core/HL_TYPES.h"
#include <cstring>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <string>

namespace {

struct Files : ::testing::Test {
	std::string dir = std::string(NIMBARA_TEST_TREE) + "/" +
	                  ::testing::UnitTest::GetInstance()->current_test_info()->name() + "/";
	void SetUp() override
	{
		std::filesystem::remove_all(dir);
		std::filesystem::create_directories(dir);
		rev_inf_bin = 0;
		inf_use = 0;
	}
	std::string put(const std::string& name, const std::string& bytes)
	{
		std::filesystem::create_directories(std::filesystem::path(dir + name).parent_path());
		std::ofstream(dir + name, std::ios::binary) << bytes;
		return dir + name;
	}
	std::string get(const std::string& name)
	{
		std::ifstream in(dir + name, std::ios::binary);
		return std::string(std::istreambuf_iterator<char>(in), {});
	}
};

}  // namespace

TEST_F(Files, ColonPathsBecomeHostPathsAndFindMixedCaseNames)
{
	std::string p = ":Aircraft:plane.acf";
	set_dir_chars(p);
	EXPECT_EQ(p, "/Aircraft/plane.acf");
	std::string s = "ab";
	set_dir_chars(s);
	EXPECT_EQ(s, "ab");
	put("Resources/Bitmaps/Terrain/Land_Use.txt", "x");
	EXPECT_EQ(ret_host_path(dir + "resources:bitmaps:terrain:land_use.txt"), dir + "Resources/Bitmaps/Terrain/Land_Use.txt");
	EXPECT_EQ(ret_host_path(dir + "Resources:Bitmaps:nothing.txt"), dir + "Resources/Bitmaps/nothing.txt");
	EXPECT_EQ(set_ext("plane.txt", ft_acf), "plane.ACF");
	EXPECT_EQ(set_ext("abc", ft_acf), "abc");
	EXPECT_EQ(set_ext("plane.acf", ft_prf), "plane");
}

TEST_F(Files, TooLongAPathIsAFatalAlert)
{
	std::string p(600, 'a');
	EXPECT_THROW(set_dir_chars(p), XFatalAlert);
	EXPECT_NE(last_alert_text.find("String too long!"), std::string::npos);
}

TEST_F(Files, TextHeadersAndVersions)
{
	put("good.txt", "I\n700 version\n1234 rest\n");
	ASSERT_EQ(inf_open(dir + "good.txt", ft_txt, 700, 0), 1);
	EXPECT_EQ(int_scan("good"), 1234);
	EXPECT_EQ(inf_open(dir + "good.txt", ft_txt, 650, 0), 0);   // wrong version, no alert
	ASSERT_EQ(inf_open(dir + "good.txt", ft_txt, 0, 0), 1);     // version left to the caller
	EXPECT_EQ(int_scan("good"), 700);
	put("b.txt", "B\n700 version\n");
	EXPECT_EQ(inf_open(dir + "b.txt", ft_txt, 700, 0), 0);
	EXPECT_EQ(inf_open(dir + "missing.txt", ft_txt, 700, 0), 0);
	int before = alert_count;
	EXPECT_THROW(inf_open(dir + "good.txt", ft_txt, 650, 1), XFatalAlert);
	EXPECT_EQ(alert_count, before + 1);
	EXPECT_NE(last_alert_text.find("wrong version"), std::string::npos);
	put("crlf.txt", "A\r\n700 version\r\n1 2\r\n");
	ASSERT_EQ(inf_open(dir + "crlf.txt", ft_txt, 700, 0), 1);
	EXPECT_EQ(int_scan("crlf"), 1);
	EXPECT_EQ(int_scan("crlf"), 2);
}

TEST_F(Files, BinaryByteOrderFollowsTheFirstByte)
{
	// "a": written big-endian, so every number is reversed on this machine.
	const unsigned char big[] = {'a', 0, 0, 0, 7, 0x00, 0x00, 0x01, 0x02, 0x3F, 0x80, 0x00, 0x00};
	put("big.wpn", std::string((const char*)big, sizeof big));
	ASSERT_EQ(inf_open(dir + "big.wpn", ft_wpn, 7, 0), 1);
	EXPECT_EQ(rev_inf_bin, 1);
	EXPECT_EQ(int_scan("big"), 0x0102);
	EXPECT_EQ(flt_scan("big"), 1.0f);
	const unsigned char little[] = {'i', 7, 0, 0, 0, 0x02, 0x01, 0x00, 0x00};
	put("little.wpn", std::string((const char*)little, sizeof little));
	ASSERT_EQ(inf_open(dir + "little.wpn", ft_wpn, 7, 0), 1);
	EXPECT_EQ(rev_inf_bin, 0);
	EXPECT_EQ(int_scan("little"), 0x0102);
	EXPECT_THROW(int_scan("little"), XFatalAlert);   // reading past the end is fatal at once
	EXPECT_NE(last_alert_text.find("File-scanning error!"), std::string::npos);
	EXPECT_NE(last_alert_text.find("little"), std::string::npos);
}

TEST_F(Files, WritersLowerTheExtensionAndWriteTheHeader)
{
	ASSERT_EQ(ouf_open(dir + "Foo.ACF", ft_acf, 1000), 1);
	ouf.close();
	EXPECT_TRUE(std::filesystem::exists(dir + "Foo.acf"));
	EXPECT_EQ(get("Foo.acf"), std::string("i\xE8\x03\x00\x00", 5));
	ASSERT_EQ(ouf_open(dir + "Notes.TXT", ft_txt, 700), 1);
	ouf << 1.5f;
	ouf.close();
	EXPECT_EQ(get("Notes.txt"), "I\n700 version\n1.500000");
	EXPECT_EQ(ouf_open(dir + "no/such/folder/x.txt", ft_txt, 700), 0);   // a notice, and the caller goes on
	EXPECT_NE(last_alert_text.find("I could not save the file!"), std::string::npos);
}

TEST_F(Files, StringAndWordScans)
{
	put("s.txt", "I\n0\n  NAME,rest of it\r\nnext\tword,x\n");
	ASSERT_EQ(inf_open(dir + "s.txt", ft_txt, 0, 0), 1);
	int_scan("s");
	lin_scan("s");
	char s[500];
	EXPECT_EQ(str_scan(s, 500, 1), 1);
	EXPECT_STREQ(s, "NAME");
	EXPECT_EQ(str_scan(s, 500, 0), 0);
	EXPECT_STREQ(s, "rest of it");
	char w[16];
	wrd_scan(w, 16, 0);   // the LF left behind the CR counts as a word end
	EXPECT_STREQ(w, "next");
	wrd_scan(w, 16, 0);
	EXPECT_STREQ(w, "word");
	char small[4];
	put("long.txt", "I\n0\nabcdefgh\nz\n");
	ASSERT_EQ(inf_open(dir + "long.txt", ft_txt, 0, 0), 1);
	int_scan("long");
	lin_scan("long");
	str_scan(small, 4, 0);
	EXPECT_STREQ(small, "abc");   // stored up to size - 1, the end where the stopping character fell
}

TEST_F(Files, MappedTextScans)
{
	put("nav.dat", "I\n810 Version - data cycle 2026\r\n 12.5 -3.25 +7 abc\r\n\r\n42 word rest of line\n99\nignored");
	XMappedFile f((dir + "nav.dat").c_str(), nullptr);
	int c_use, c_max;
	ASSERT_EQ(MAP_check_file(ft_nav, &f, f.mBegin, &c_use, &c_max, "810"), 1);
	EXPECT_EQ(copyright_nav, "Version - data cycle 2026");
	EXPECT_FLOAT_EQ(TXT_MAP_flt_scan(f.mBegin, &c_use, c_max), 12.5f);
	EXPECT_FLOAT_EQ(TXT_MAP_flt_scan(f.mBegin, &c_use, c_max), -3.25f);
	EXPECT_FLOAT_EQ(TXT_MAP_flt_scan(f.mBegin, &c_use, c_max), 7.0f);
	char s[64];
	TXT_MAP_str_scan(f.mBegin, &c_use, c_max, s, 64);   // "abc", then over CR LF CR LF
	EXPECT_STREQ(s, "abc");
	EXPECT_EQ(f.mBegin[c_use], '4');
	EXPECT_EQ(TXT_MAP_int_scan(f.mBegin, &c_use, c_max), 42);
	TXT_MAP_wrd_scan(f.mBegin, &c_use, c_max, s, 64);
	EXPECT_STREQ(s, "word");
	TXT_MAP_str_scan(f.mBegin, &c_use, c_max, s, 64);
	EXPECT_STREQ(s, "rest of line");
	EXPECT_EQ(TXT_MAP_is_end(f.mBegin, c_use, c_max), 1);
	EXPECT_EQ(MAP_check_file(ft_nav, &f, f.mBegin, &c_use, &c_max, "900"), 0);
}

TEST_F(Files, MappedEmptyMissingAndBinaryFiles)
{
	put("empty.dat", "");
	unsigned char* b = nullptr;
	XMappedFile f((dir + "empty.dat").c_str(), &b);
	EXPECT_NE(b, nullptr);   // an empty file is a file
	EXPECT_EQ(f.mEnd - f.mBegin, 0);
	int c_use = 5, c_max = 5;
	EXPECT_EQ(MAP_check_file(ft_txt, &f, b, &c_use, &c_max, "NOT NIMBASYS"), 0);
	EXPECT_EQ(c_max, 0);
	EXPECT_EQ(f.retry((dir + "missing.dat").c_str()), nullptr);
	XMappedFile none(nullptr, nullptr);
	EXPECT_EQ(MAP_check_file(ft_txt, &none, none.mBegin, &c_use, &c_max, "NOT NIMBASYS"), 0);

	const unsigned char bin[] = {'a', 0, 0, 3, 0xE8, 0x40, 0x49, 0x0F, 0xDB, 0x01};
	put("b.bin", std::string((const char*)bin, sizeof bin));
	XMappedFile g((dir + "b.bin").c_str(), nullptr);
	ASSERT_EQ(MAP_check_file(ft_acf, &g, g.mBegin, &c_use, &c_max, "1000"), 1);
	EXPECT_FLOAT_EQ(BIN_MAP_flt_scan(g.mBegin, &c_use, c_max), 3.1415927f);
	EXPECT_EQ(BIN_MAP_chr_scan(g.mBegin, &c_use, c_max), 1);
	EXPECT_EQ(BIN_MAP_int_scan(g.mBegin, &c_use, c_max), 0);   // past the end: 0, never a read beyond it
	EXPECT_EQ(BIN_MAP_chr_scan(g.mBegin, &c_use, c_max), 0);
	EXPECT_EQ(MAP_check_file(ft_acf, &g, g.mBegin, &c_use, &c_max, "999"), 0);
	EXPECT_EQ(MAP_check_file(ft_acf, &g, g.mBegin, &c_use, &c_max, "10x0"), 0);
}

TEST_F(Files, AFatalAlertIsLoggedAndCarriedUp)
{
	xer.open(dir + "Error.out");
	try {
		NB_ALERT("one", "two", "three", "four", alert_fatal);
		FAIL() << "a fatal alert returned";
	} catch (const XFatalAlert& x) {
		EXPECT_EQ(x.c1_, "one");
		EXPECT_EQ(x.c4_, "four");
	}
	NB_ALERT("a notice", "", "", "", alert_notice);   // returns
	xer.close();
	std::string log = get("Error.out");
	EXPECT_NE(log.find("file: "), std::string::npos);
	EXPECT_NE(log.find("one\ntwo\nthree\nfour\n"), std::string::npos);
	EXPECT_NE(log.find("a notice"), std::string::npos);
	g_done = 0;
}
