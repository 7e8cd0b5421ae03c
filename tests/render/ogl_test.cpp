// The drawing layer read back from the driver: text widths and glyph shapes, numbers in
// their fields, the colour table's lighting, night vision and alpha, the panel's place in
// windows of any size, the state setter against the live state, and the sheets' layout.
#include "render/ogl.h"
#include "render/HL_GRAPH.h"
#include "render/textures.h"
#include "core/HL_MAIN.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "core/files.h"
#include "platform/plat.h"
#include "support/images.h"
#include <GL/gl.h>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <random>
#include <map>
#include <sstream>

using namespace test_images;

namespace {

struct box {
	int x1 = 1 << 30, y1 = 1 << 30, x2 = -1, y2 = -1;   // inclusive, window pixels from the bottom left
	bool empty() const { return x2 < 0; }
	int w() const { return x2 - x1 + 1; }
	int h() const { return y2 - y1 + 1; }
};

struct Drawing : ::testing::Test {
	std::string dir = std::string(NIMBARA_TEST_TREE) + "/" + ::testing::UnitTest::GetInstance()->current_test_info()->name() + "/";
	int W = 0, H = 0;
	std::vector<unsigned char> px;

	void SetUp() override
	{
		std::filesystem::remove_all(dir);
		std::filesystem::create_directories(dir);
		zero_all_records();
		init_tables();
		window(1024, 768);
	}
	void TearDown() override { plat_offscreen_close(); }

	// A fresh window of this size, the interface sheet of the data tree loaded.
	void window(int w, int h)
	{
		plat_offscreen_close();
		ASSERT_TRUE(plat_offscreen_open(w, h)) << plat_offscreen_error();
		W = w;
		H = h;
		for (int& t : o_tex) t = -1;
		num_texes = 0;
		OGL_report_situation();
		OGL_init_state();
		OGL_assign_start_colours();
		OGL_set_panel_space(w, h);
		bmp_path = std::string(NIMBARA_DATA_TREE) + "/Resources/bitmaps/";
		OGL_load_interface();
		clear();
	}
	void clear()
	{
		glClearColor(0, 0, 0, 1);
		glClear(GL_COLOR_BUFFER_BIT);
		OGL_viewport(2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1.0f);
	}
	void grab()
	{
		glFinish();
		px.assign((size_t)W * H * 4, 0);
		glPixelStorei(GL_PACK_ALIGNMENT, 1);
		glReadPixels(0, 0, W, H, GL_RGBA, GL_UNSIGNED_BYTE, px.data());
	}
	const unsigned char* at(int x, int y) const { return &px[((size_t)y * W + x) * 4]; }
	// The lit pixels within a window rectangle.
	box lit(int x1 = 0, int y1 = 0, int x2 = -1, int y2 = -1, int threshold = 60) const
	{
		if (x2 < 0) x2 = W - 1;
		if (y2 < 0) y2 = H - 1;
		box b;
		for (int y = std::max(0, y1); y <= std::min(y2, H - 1); y++)
			for (int x = std::max(0, x1); x <= std::min(x2, W - 1); x++) {
				const unsigned char* p = at(x, y);
				if (std::max({p[0], p[1], p[2]}) < threshold) continue;
				b.x1 = std::min(b.x1, x); b.x2 = std::max(b.x2, x);
				b.y1 = std::min(b.y1, y); b.y2 = std::max(b.y2, y);
			}
		return b;
	}
	box drawn(const std::string& s, int charset)
	{
		clear();
		OGL_string(0, 100, 300, s, 9999, charset);
		grab();
		return lit();
	}
	// The lit pattern of a block, to compare glyphs drawn two ways.
	std::vector<bool> pattern_at(int x, int y, int w, int h) const
	{
		std::vector<bool> v;
		for (int j = y; j < y + h; j++)
			for (int i = x; i < x + w; i++) v.push_back(at(i, j)[1] > 60);
		return v;
	}
};

}  // namespace

TEST_F(Drawing, AStringGrowsByThePitchOrByEachAdvanceAndDoublesInADoubleWindow)
{
	const box m4 = drawn("MMMM", 101), m8 = drawn("MMMMMMMM", 101);
	EXPECT_EQ(m8.w() - m4.w(), 4 * 6);
	const box w4 = drawn("MMMM", 102), w8 = drawn("MMMMMMMM", 102);
	EXPECT_EQ(w8.w() - w4.w(), 4 * 10);
	const box p4 = drawn("WWWW", 100), p8 = drawn("WWWWWWWW", 100);
	EXPECT_EQ(p8.w() - p4.w(), 4 * 9);
	const box i4 = drawn("ilil", 100), i8 = drawn("ilililil", 100);
	EXPECT_EQ(i8.w() - i4.w(), 4 * 3);
	const box mixed = drawn("Am.", 100), a = drawn("A", 100);   // A 7, m 8: the dot's ink follows 15 on
	EXPECT_GE(mixed.x2 - a.x1, 15);
	EXPECT_LE(mixed.x2 - a.x1, 16);
	EXPECT_EQ(drawn("a\x01\x7f" "b", 100).w(), drawn("ab", 100).w());   // outside the table: no width
	window(2048, 1536);
	const box big4 = drawn("MMMM", 101), big8 = drawn("MMMMMMMM", 101);
	EXPECT_EQ(big8.w() - big4.w(), 2 * 4 * 6);
	EXPECT_NEAR(big4.h(), 2 * m4.h(), 2);
}

TEST_F(Drawing, GlyphsAreTheRightOnesAndTheRightWayUp)
{
	const box dash = drawn("-", 100), bar = drawn("|", 100), dot = drawn(".", 100), tick = drawn("'", 100);
	ASSERT_FALSE(dash.empty() || bar.empty() || dot.empty() || tick.empty());
	EXPECT_GT(dash.w(), dash.h());      // flat
	EXPECT_GE(bar.h(), 3 * bar.w());    // tall and thin
	EXPECT_GE(bar.h(), 8);
	EXPECT_LE(dot.y1, 301);             // the dot sits on the baseline at y 300
	EXPECT_GE(dot.y1, 299);
	EXPECT_GE(tick.y1, 300 + 4);        // the apostrophe stands high
	const box x_height = drawn("x", 100), cap = drawn("H", 100), p = drawn("p", 100);
	EXPECT_GT(cap.y2, x_height.y2);     // capitals over small letters
	EXPECT_LT(p.y1, 299);               // descenders below the baseline
	// Every letter and digit distinct from every other, in both fonts.
	for (int charset : {100, 101}) {
		std::map<std::vector<bool>, char> seen;
		const std::string all = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
		for (char c : all) {
			clear();
			OGL_string(0, 100, 300, std::string(1, c), 9999, charset);
			grab();
			const auto [it, fresh] = seen.emplace(pattern_at(100, 298, 8, 11), c);
			EXPECT_TRUE(fresh) << "'" << c << "' looks like '" << it->second << "' in charset " << charset;
		}
	}
}

TEST_F(Drawing, ANumberFillsItsFieldAndOneTooLongFallsToExponentForm)
{
	auto same = [this](float value, int dig, int dec, const std::string& as_text) {
		clear();
		OGL_number(0, 100, 300, value, dig, dec, 101);
		OGL_string(0, 100, 200, as_text, 9999, 101);
		grab();
		const int w = 6 * (int)as_text.size() + 2;
		return pattern_at(100, 298, w, 11) == pattern_at(100, 198, w, 11);
	};
	EXPECT_TRUE(same(5, 3, 0, " 005"));              // digits one pitch after the sign's place
	EXPECT_TRUE(same(1234567, 4, 0, " 123x4"));      // mantissa 123, ten to the 4
	EXPECT_TRUE(same(-42, 3, 0, "-042"));
	EXPECT_TRUE(same(-0.4f, 2, 0, " 00"));            // nothing that shows as zero takes a sign
	EXPECT_TRUE(same(999, 3, 0, " 999"));
	EXPECT_TRUE(same(1000, 3, 0, " 100x1"));
	clear();
	OGL_number(0, 100, 300, -0.04f, 2, 1, 101);   // 0.0: no sign in the sign's cell
	OGL_number(0, 100, 200, -0.06f, 2, 1, 101);   // 0.1: a sign
	grab();
	EXPECT_TRUE(lit(100, 290, 105, 310).empty());
	EXPECT_FALSE(lit(100, 190, 105, 210).empty());
	clear();
	OGL_number(0, 100, 300, 12.5f, 4, 1, 101);   // a point between the whole and the tenths
	OGL_number(0, 100, 200, 1234, 4, 0, 101);    // a comma between thousands and hundreds
	grab();
	EXPECT_FALSE(lit(100 + 6 * 4 - 2, 297, 100 + 6 * 4 + 2, 300).empty());
	EXPECT_FALSE(lit(100 + 6 * 2 - 2, 196, 100 + 6 * 2 + 2, 200).empty());
	const int alerts = alert_count;
	OGL_number(0, 100, 300, 1.0f, 3, 0, 100);
	EXPECT_EQ(alert_count, alerts + 1);
	EXPECT_EQ(last_alert_text.substr(0, 28), "Numbers must be mono-spaced!");
	OGL_string(0, 100, 300, "x", 9999, 104);
	EXPECT_EQ(last_alert_text.substr(0, 29), "String proc with bad charset!");
}

TEST_F(Drawing, RectanglesTakeTheTablesColoursLightingNightVisionAndAlpha)
{
	auto fill = [this](int color, float alpha) {
		clear();
		OGL_fillrect(color, alpha, 100, 100, 50, 50);
		grab();
		const unsigned char* p = at(125 + (int)mnw.x_off, 125);
		return std::vector<int>{p[0], p[1], p[2]};
	};
	EXPECT_EQ(fill(13, 1), (std::vector<int>{0, 204, 0}));
	EXPECT_EQ(fill(45, 1), (std::vector<int>{255, 102, 102}));
	r_manual_lighting = g_manual_lighting = b_manual_lighting = 0.5f;
	EXPECT_EQ(fill(13, 1)[1], 102);    // a panel colour dims
	EXPECT_EQ(fill(38, 1)[0], std::lround(col_rgb[38][0] * 0.5f * 255));
	EXPECT_EQ(fill(39, 1)[0], std::lround(col_rgb[39][0] * 255));   // 39 and above do not
	EXPECT_EQ(fill(44, 1)[1], 255);
	r_manual_lighting = g_manual_lighting = b_manual_lighting = 1.0f;
	ren.night_vision_on = 1;
	EXPECT_EQ(fill(1, 1), (std::vector<int>{0, 204, 0}));   // red seen green
	EXPECT_EQ(fill(0, 1), (std::vector<int>{0, 255, 0}));
	ren.night_vision_on = 0;
	const std::vector<int> half = fill(0, 0.5f);
	EXPECT_NEAR(half[0], 128, 1);
	ren.current_alpha = 0.5f;
	EXPECT_NEAR(fill(0, 1)[1], 128, 1);
	ren.current_alpha = 1.0f;
}

TEST_F(Drawing, ThePanelSitsInAnyWindowScaledButNeverShrunkCentredWithItsMarginAbove)
{
	struct { int w, h; float scale, x_off, y_off; } cases[] = {
		{800, 600, 1.0f, -112.0f, -168.0f}, {1600, 1200, 1.5625f, 0.0f, 0.0f}, {2048, 768, 1.0f, 512.0f, 0.0f},
		{1024, 1536, 1.0f, 0.0f, 768.0f}, {1920, 1080, 1.40625f, 170.6667f, 0.0f},
	};
	for (const auto& c : cases) {
		SCOPED_TRACE(std::to_string(c.w) + "x" + std::to_string(c.h));
		window(c.w, c.h);
		EXPECT_NEAR(mnw.xy_scale, c.scale, 1e-4f);
		EXPECT_NEAR(mnw.x_off, c.x_off, 1e-3f);
		EXPECT_NEAR(mnw.y_off, c.y_off, 1e-3f);
		OGL_fillrect(0, 1, 0, 0, 1024, 768);   // the whole panel
		grab();
		const box b = lit();
		ASSERT_FALSE(b.empty());
		const int want_x1 = std::max(0, (int)std::lround(c.x_off * c.scale)), want_w = std::min(c.w, (int)std::lround(1024 * c.scale));
		EXPECT_NEAR(b.x1, want_x1, 1);
		EXPECT_NEAR(b.w(), want_w, 1);
		EXPECT_EQ(b.y1, 0);   // on the floor of the window, the margin all above
		EXPECT_NEAR(b.h(), std::min(c.h, (int)std::lround(768 * c.scale)), 1);
	}
}

// Whatever came before, the live enables and depth mask end as the last call asked.
TEST_F(Drawing, TheStateSetterLeavesOpenGlAsAskedAfterAnySeriesOfCalls)
{
	std::mt19937 rng(3);
	static const GLenum caps[] = {GL_FOG, GL_TEXTURE_2D, GL_LIGHTING, GL_BLEND, GL_ALPHA_TEST, GL_DEPTH_TEST};
	for (int n = 0; n < 400; n++) {
		if (n % 7 == 0) {   // something changed behind its back
			const GLenum c = caps[rng() % 6];
			if (rng() % 2) glEnable(c);
			else glDisable(c);
		}
		const int fog = (int)(rng() % 2), tex = (int)(rng() % 5), lit_ = 2 + (int)(rng() % 2), alpha = 4 + (int)(rng() % 4);
		const int dr = 8 + (int)(rng() % 2), dw = 10 + (int)(rng() % 2);
		OGL_setstate(fog, tex, lit_, alpha, dr, dw);
		const int units = std::min(tex, std::max(ren.num_tex_units, 1));
		ASSERT_EQ(glIsEnabled(GL_FOG), fog == 0) << n;
		ASSERT_EQ(num_texes, units) << n;
		for (int u = 0; u < std::min(ren.num_tex_units, 4); u++) {
			glActiveTexture(GL_TEXTURE0 + u);
			const bool on = glIsEnabled(GL_TEXTURE_2D);
			glActiveTexture(GL_TEXTURE0);
			if (u == 0 || units > 1) {
				ASSERT_EQ(on, u < units) << n << " unit " << u;
			}
		}
		ASSERT_EQ(glIsEnabled(GL_LIGHTING), lit_ == 2) << n;
		ASSERT_EQ(glIsEnabled(GL_LIGHT0), lit_ == 2) << n;
		ASSERT_EQ(glIsEnabled(GL_BLEND), alpha == 5 || alpha == 7) << n;
		ASSERT_EQ(glIsEnabled(GL_ALPHA_TEST), alpha == 6 || alpha == 7) << n;
		ASSERT_EQ(glIsEnabled(GL_DEPTH_TEST), dr == 8) << n;
		GLboolean mask;
		glGetBooleanv(GL_DEPTH_WRITEMASK, &mask);
		ASSERT_EQ(mask == GL_TRUE, dw == 10) << n;
	}
	EXPECT_EQ(glGetError(), (GLenum)GL_NO_ERROR);
}

// The sheet's swatches come back as the colours its source gives, read the way the sheet
// tool wrote them; and a language's two-byte sheet places its cells as the layout says.
TEST_F(Drawing, TheInterfaceColoursAndTheTwoByteSheetReadAsWritten)
{
	std::ifstream src(std::string(NIMBARA_SOURCE_DIR) + "/content/bitmaps/interface.txt");
	ASSERT_TRUE(src.good());
	std::vector<std::array<int, 5>> swatches;
	for (std::string line; std::getline(src, line);) {
		std::istringstream ss(line);
		std::string op;
		std::array<int, 5> v;
		if (ss >> op && op == "swatch" && ss >> v[0] >> v[1] >> v[2] >> v[3] >> v[4]) swatches.push_back(v);
	}
	ASSERT_EQ(swatches.size(), 13u);
	int id = 28, k = 0;
	for (; id <= 40; id++) {
		if (id == 33) continue;
		const auto& s = swatches[(size_t)k++];
		EXPECT_EQ(s[0], 319);
		for (int c = 0; c < 3; c++) EXPECT_NEAR(col_rgb[id][c], s[2 + c] / 255.0f, 0.6f / 255.0f) << id;
	}
	for (int c = 0; c < 3; c++) {
		EXPECT_NEAR(col_rgb[41][c], swatches[12][2 + c] / 255.0f, 0.6f / 255.0f);
		EXPECT_FLOAT_EQ(col_rgb[33][c], 0.5f * (col_rgb[29][c] + col_rgb[32][c]));
	}
	// Charset 103: character (1, 3) is cell 2, at s 26 of the sheet's bottom row.
	picture sheet = pattern(512, 512, true);
	for (rgba& p : sheet.px) p = {0, 0, 0, 0};
	for (int y = 511 - 12; y <= 511; y++)
		for (int x = 26; x < 39; x++) sheet.at(x, y) = {255, 255, 255, 255};
	ASSERT_TRUE(write_png(dir + "menu_text.png", sheet, png_rgba, 1.0 / 2.2));
	bmp_path = dir;
	ASSERT_EQ(OGL_texbmp(tex_load, 469, filt_key_magenta, "menu_text.png"), 1);
	clear();
	OGL_string(0, 100, 300, "\x01\x03\x01\x01", 9999, 103);   // the lit cell, then an empty one
	grab();
	const box b = lit();
	EXPECT_EQ(b.x1, 100);
	EXPECT_EQ(b.w(), 13);
	EXPECT_EQ(b.y1, 298);
	EXPECT_EQ(b.h(), 13);
}
