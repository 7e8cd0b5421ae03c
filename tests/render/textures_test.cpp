// Image files into the driver: every PNG colour type and a padded BMP read back as texels,
// the gamma, the sizes by id and resolution, the mipmap chain, the magenta key and the
// bleed, the composed panel, the written BMP, and corrupt files.
#include "render/textures.h"
#include "render/HL_GRAPH.h"
#include "core/HL_MAIN.h"
#include "core/HL_TYPES.h"
#include "core/files.h"
#include "platform/plat.h"
#include "support/images.h"
#include <GL/gl.h>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <gtest/gtest.h>
#include <random>

using namespace test_images;

namespace {

struct Textures : ::testing::Test {
	std::string dir = std::string(NIMBARA_TEST_TREE) + "/" + ::testing::UnitTest::GetInstance()->current_test_info()->name() + "/";
	void SetUp() override
	{
		std::filesystem::remove_all(dir);
		std::filesystem::create_directories(dir);
		zero_all_records();
		ASSERT_TRUE(plat_offscreen_open(64, 64)) << plat_offscreen_error();
		OGL_report_situation();
		mnw.tex_res = 4;
		bmp_path = dir;
	}
	void TearDown() override { plat_offscreen_close(); }

	// Level L of texture id as the driver holds it, RGBA, row 0 at the bottom.
	picture texels(int id, int level = 0)
	{
		glBindTexture(GL_TEXTURE_2D, (GLuint)id);
		GLint w = 0, h = 0;
		glGetTexLevelParameteriv(GL_TEXTURE_2D, level, GL_TEXTURE_WIDTH, &w);
		glGetTexLevelParameteriv(GL_TEXTURE_2D, level, GL_TEXTURE_HEIGHT, &h);
		picture p{w, h, std::vector<rgba>((size_t)w * h)};
		glPixelStorei(GL_PACK_ALIGNMENT, 1);
		if (w > 0 && h > 0) glGetTexImage(GL_TEXTURE_2D, level, GL_RGBA, GL_UNSIGNED_BYTE, p.px.data());
		return p;
	}
};

// The correction a file of gamma g gets for our screen; a file that declares none is taken
// as made for a darker screen.
int corrected(int v, double file_gamma)
{
	return (int)(std::pow(v / 255.0, 1.0 / (file_gamma * 2.2)) * 255.0 + 0.5);
}

}  // namespace

TEST_F(Textures, EveryPngColourTypeComesBackWithTheFilesPixelsCorrectedForItsGamma)
{
	const picture src = pattern(5, 3, true);
	struct { png_kind kind; const char* name; } kinds[] = {{png_gray, "gray"}, {png_rgb, "rgb"}, {png_rgba, "rgba"}, {png_palette, "pal"}};
	int id = 500;
	for (const auto& k : kinds)
		for (double gamma : {1.0 / 2.2, 0.0, 1.0}) {
			SCOPED_TRACE(std::string(k.name) + " gamma " + std::to_string(gamma));
			const std::string name = std::string(k.name) + std::to_string(id) + ".png";
			ASSERT_TRUE(write_png(dir + name, src, k.kind, gamma));
			ASSERT_EQ(OGL_texbmp(tex_load, id, filt_alpha_mean, name), 1);
			EXPECT_EQ(ren.tex_dx_vis[id], 5);
			EXPECT_EQ(ren.tex_dy_vis[id], 3);
			EXPECT_EQ(ren.tex_dx_tot[id], 8);
			EXPECT_EQ(ren.tex_dy_tot[id], 4);
			const picture t = texels(id);
			ASSERT_EQ(t.w, 8);
			const double g = gamma > 0.0 ? gamma : 0.5555555555555556;
			const bool alpha = k.kind == png_rgba || k.kind == png_palette;
			for (int y = 0; y < 3; y++)
				for (int x = 0; x < 5; x++) {
					const rgba& s = src.at(x, y);
					const rgba& d = t.at(x, 2 - y);   // the file's top row is the texture's highest
					const int want_r = corrected(s.r, g);
					EXPECT_NEAR(d.r, want_r, 1) << x << "," << y;
					if (k.kind == png_gray) {
						EXPECT_EQ(d.g, d.r);
						EXPECT_EQ(d.b, d.r);
					} else {
						EXPECT_NEAR(d.g, corrected(s.g, g), 1);
						EXPECT_NEAR(d.b, corrected(s.b, g), 1);
					}
					EXPECT_EQ(d.a, alpha ? s.a : 255);
				}
			id++;
		}
}

TEST_F(Textures, APngWithoutGammaAndABmpOfTheSamePictureGiveTheSameTexels)
{
	const picture src = pattern(5, 4, false);   // 5 wide: each BMP row carries a byte of padding
	ASSERT_TRUE(write_png(dir + "same.png", src, png_rgb, 0.0));
	write_file(dir + "other.bmp", bmp_bytes(src));
	ASSERT_EQ(OGL_texbmp(tex_load, 600, filt_rgb, "same.png"), 1);
	ASSERT_EQ(OGL_texbmp(tex_load, 601, filt_rgb, "other.bmp"), 1);
	const picture a = texels(600), b = texels(601);
	ASSERT_EQ(a.w, 8);
	ASSERT_EQ(b.w, 8);
	for (int y = 0; y < 4; y++)
		for (int x = 0; x < 5; x++) {
			EXPECT_EQ(std::memcmp(&a.at(x, y), &b.at(x, y), 4), 0) << x << "," << y;
			EXPECT_EQ(b.at(x, 3 - y).g, win_gamma[src.at(x, y).g]);
		}
}

TEST_F(Textures, APngWinsOverABmpAndAPathAlreadyUnderTheBitmapFolderIsNotPrefixedTwice)
{
	picture red = pattern(4, 4, false), blue = red;
	for (rgba& c : red.px) c = {255, 0, 0, 255};
	for (rgba& c : blue.px) c = {0, 0, 255, 255};
	std::filesystem::create_directories(dir + "Sub");
	ASSERT_TRUE(write_png(dir + "Sub/twin.png", red, png_rgb, 1.0 / 2.2));
	write_file(dir + "Sub/twin.bmp", bmp_bytes(blue));
	bmp_path = dir + "Sub/";
	std::string other_case = dir + "sub/twin.bmp";   // the folder in another letter case
	ASSERT_EQ(OGL_texbmp(tex_load, 610, filt_rgb, other_case), 1);
	EXPECT_EQ(texels(610).at(1, 1).r, 255);
	EXPECT_EQ(texels(610).at(1, 1).b, 0);
}

TEST_F(Textures, SizesFollowTheIdAndTheResolutionSetting)
{
	picture big = pattern(1024, 1024, false);
	ASSERT_TRUE(write_png(dir + "big.png", big, png_rgb, 0.0));
	mnw.tex_res = 3;   // half, and runways halve once more
	ASSERT_EQ(OGL_texbmp(tex_load, 100, filt_rgb, "big.png"), 1);
	EXPECT_EQ(ren.tex_dx_tot[100], 256);
	EXPECT_EQ(ren.tex_dy_vis[100], 256);
	EXPECT_EQ(texels(100).w, 256);
	ASSERT_EQ(OGL_texbmp(tex_load, 500, filt_rgb, "big.png"), 1);   // an object's: half
	EXPECT_EQ(ren.tex_dx_tot[500], 512);
	ASSERT_EQ(OGL_texbmp(tex_load, 468, filt_rgb, "big.png"), 1);   // the interface sheet: never scaled
	EXPECT_EQ(ren.tex_dx_tot[468], 1024);
	mnw.tex_res = 0;   // a sixteenth for clouds, doubled back once
	ASSERT_EQ(OGL_texbmp(tex_load, 204, filt_rgb, "big.png"), 1);
	EXPECT_EQ(ren.tex_dx_tot[204], 128);
	ASSERT_TRUE(write_png(dir + "wide.png", pattern(700, 300, false), png_rgb, 0.0));
	ASSERT_EQ(OGL_texbmp(tex_load, 7942, filt_rgb, "wide.png"), 1);
	EXPECT_EQ(ren.tex_dx_vis[7942], 700);
	EXPECT_EQ(ren.tex_dy_vis[7942], 300);
	EXPECT_EQ(ren.tex_dx_tot[7942], 1024);
	EXPECT_EQ(ren.tex_dy_tot[7942], 512);
	EXPECT_EQ(ren.tex_vram[7942], 1024u * 512u * 3u);
	const picture t = texels(7942);   // the picture at the bottom left, nothing beyond it
	EXPECT_EQ(t.at(699, 0).g, win_gamma[pattern(700, 300, false).at(699, 299).g]);
	EXPECT_EQ(t.at(700, 0).r, 0);
	EXPECT_EQ(t.at(0, 300).r, 0);
	mnw.tex_res = 4;   // land must be whole square tiles side by side
	ASSERT_TRUE(write_png(dir + "land.png", pattern(64, 32, false), png_rgb, 0.0));
	ASSERT_EQ(OGL_texbmp(tex_load, 3, filt_rgb, "land.png"), 1);
	EXPECT_EQ(ren.tex_tiles[3], 2);
	const int alerts = alert_count;
	ASSERT_TRUE(write_png(dir + "odd.png", pattern(48, 32, false), png_rgb, 0.0));
	OGL_texbmp(tex_load, 4, filt_rgb, "odd.png");
	EXPECT_GT(alert_count, alerts);
	EXPECT_NE(last_alert_text.find("Wrong size terrain texture!"), std::string::npos);
}

TEST_F(Textures, EachMipLevelIsTheTwoByTwoMeanOfTheOneAboveDownToOnePixel)
{
	ASSERT_TRUE(write_png(dir + "mip.png", pattern(16, 4, true), png_rgba, 1.0 / 2.2));
	ASSERT_EQ(OGL_texbmp(tex_load, 520, filt_alpha_mean_mip, "mip.png"), 1);
	unsigned vram = 0;
	picture above = texels(520, 0);
	ASSERT_EQ(above.w, 16);
	vram += 16 * 4 * 4;
	for (int level = 1; above.w > 1 || above.h > 1; level++) {
		const picture t = texels(520, level);
		ASSERT_EQ(t.w, std::max(above.w / 2, 1)) << level;
		ASSERT_EQ(t.h, std::max(above.h / 2, 1)) << level;
		vram += (unsigned)(t.w * t.h * 4);
		for (int y = 0; y < t.h; y++)
			for (int x = 0; x < t.w; x++) {
				const int x1 = std::min(2 * x + 1, above.w - 1), y1 = std::min(2 * y + 1, above.h - 1);
				const rgba &a = above.at(2 * x, 2 * y), &b = above.at(x1, 2 * y), &c = above.at(2 * x, y1), &d = above.at(x1, y1);
				EXPECT_EQ(t.at(x, y).r, (a.r + b.r + c.r + d.r) / 4) << level;
				EXPECT_EQ(t.at(x, y).a, (a.a + b.a + c.a + d.a) / 4) << level;
			}
		above = t;
	}
	EXPECT_EQ(ren.tex_vram[520], vram);
	EXPECT_EQ(ren.tex_dx_tot[520], 16);   // the sizes are the top level's again
}

TEST_F(Textures, PureMagentaIsKeyedOutAndTakesItsNeighboursColour)
{
	picture p = pattern(4, 4, false);
	for (rgba& c : p.px) c = {0, 0, 0, 255};
	p.at(0, 0) = {255, 0, 0, 255};   // red beside the hole, green further off
	p.at(1, 0) = {255, 0, 255, 255};
	p.at(3, 3) = {0, 255, 0, 255};
	for (int y = 0; y < 4; y++)
		for (int x = 2; x < 4; x++)
			if (!(x == 3 && y == 3)) p.at(x, y) = {255, 0, 255, 255};
	for (int y = 1; y < 4; y++) p.at(0, y) = p.at(1, y) = {255, 0, 255, 255};
	write_file(dir + "key.bmp", bmp_bytes(p));
	ASSERT_EQ(OGL_texbmp(tex_load, 530, filt_key_magenta, "key.bmp"), 1);
	const picture t = texels(530);
	EXPECT_EQ(t.at(0, 3).a, 255);   // the file's top-left red
	EXPECT_EQ(t.at(0, 3).r, 255);
	const rgba hole = t.at(1, 3);
	EXPECT_EQ(hole.a, 0);
	EXPECT_EQ(hole.r, 255);   // only the red is within two pixels
	EXPECT_EQ(hole.g, 0);
	EXPECT_EQ(hole.b, 0);
	const rgba between = t.at(2, 1);   // both within two: their mean
	EXPECT_EQ(between.a, 0);
	EXPECT_EQ(between.r, 127);
	EXPECT_EQ(between.g, 127);
	ASSERT_EQ(OGL_texbmp(tex_load, 531, filt_rgb, "key.bmp"), 1);   // without the key, magenta stays
	EXPECT_EQ(texels(531).at(1, 3).b, 255);
}

TEST_F(Textures, AHalfTransparentLayerOverThePanelGivesTheMidpointColour)
{
	picture base = pattern(1024, 768, false), layer = pattern(1024, 1024, true);
	for (rgba& c : base.px) c = {100, 100, 100, 255};
	for (rgba& c : layer.px) c = {0, 0, 0, 0};
	for (int y = 400; y < 500; y++)
		for (int x = 0; x < 100; x++) layer.at(x, y) = {200, 60, 100, 128};   // within the background's height
	ASSERT_TRUE(write_png(dir + "panel.png", base, png_rgb, 1.0 / 2.2));
	ASSERT_TRUE(write_png(dir + "panel-1.png", layer, png_rgba, 1.0 / 2.2));
	ASSERT_EQ(OGL_texbmp(tex_panel_base, 7942, filt_key_magenta, "panel.png"), 1);
	ASSERT_EQ(OGL_texbmp(tex_panel_layer, 7942, filt_key_magenta, "panel-1.png"), 1);
	ren.tex_dx_tot[480] = ren.tex_dy_tot[480] = 1024;
	OGL_load_tex("panel", 480, 0, filt_rgb, GL_RGBA, scratch_array);
	const picture t = texels(480);
	const rgba mid = t.at(50, 1023 - 450), plain = t.at(500, 300), empty = t.at(500, 900);
	EXPECT_NEAR(mid.r, 150, 1);
	EXPECT_NEAR(mid.g, 80, 1);
	EXPECT_NEAR(mid.b, 100, 1);
	EXPECT_EQ(mid.a, 255);
	EXPECT_EQ(plain.r, 100);
	EXPECT_EQ(plain.a, 255);
	EXPECT_EQ(empty.a, 0);   // above the background's 768 rows nothing covers the panel
}

TEST_F(Textures, AWrittenBmpReadsBackAsAnyReaderWouldReadIt)
{
	for (int k = 0; k < 8 * 4; k++) {   // packed RGB, row 0 at the bottom
		scratch_array[k * 3] = (unsigned char)(k * 7);
		scratch_array[k * 3 + 1] = (unsigned char)(k * 3);
		scratch_array[k * 3 + 2] = (unsigned char)(255 - k);
	}
	ASSERT_EQ(OGL_make_bmp(dir + "out.bmp", 8, 4), 1);
	const std::string f = read_file(dir + "out.bmp");
	ASSERT_EQ(f.size(), 54u + 8 * 4 * 3);
	auto u32 = [&f](size_t at) { return (unsigned)(unsigned char)f[at] | (unsigned)(unsigned char)f[at + 1] << 8 |
		                                   (unsigned)(unsigned char)f[at + 2] << 16 | (unsigned)(unsigned char)f[at + 3] << 24; };
	EXPECT_EQ(f.substr(0, 2), "BM");
	EXPECT_EQ(u32(2), f.size());
	EXPECT_EQ(u32(10), 54u);
	EXPECT_EQ(u32(14), 40u);
	EXPECT_EQ(u32(18), 8u);
	EXPECT_EQ(u32(22), 4u);
	EXPECT_EQ((unsigned char)f[28], 24);
	EXPECT_EQ(u32(30), 0u);
	for (int k = 0; k < 32; k++) {   // blue, green, red
		EXPECT_EQ((unsigned char)f[54 + k * 3], (unsigned char)(255 - k));
		EXPECT_EQ((unsigned char)f[54 + k * 3 + 2], (unsigned char)(k * 7));
	}
}

TEST_F(Textures, BmpFaultsGiveTheirOwnAlerts)
{
	const picture p = pattern(4, 4, false);
	struct { std::string bytes; const char* alert; } cases[] = {
		{"XX" + bmp_bytes(p).substr(2), "Trying to read a texture bitmap that is not a bitmap"},
		{bmp_bytes(p, 32), "Wrong bitmap color depth for texture!"},
		{bmp_bytes(p, 24, 1), "Bitmap is compressed!"},
		{bmp_bytes(pattern(1030, 1, false)), "Bitmap too wide! (max is 1024)"},
		{bmp_bytes(pattern(1, 1030, false)), "Bitmap too tall! (max is 1024)"},
		{bmp_bytes(p).substr(0, 60), "Trying to read a texture bitmap that is not a bitmap"},
	};
	for (const auto& c : cases) {
		write_file(dir + "bad.bmp", c.bytes);
		const int alerts = alert_count;
		EXPECT_EQ(OGL_texbmp(tex_load, 540, filt_rgb, "bad.bmp"), 0) << c.alert;
		EXPECT_EQ(alert_count, alerts + 1) << c.alert;
		EXPECT_EQ(last_alert_text.substr(0, std::strlen(c.alert)), c.alert);
	}
	std::filesystem::remove(dir + "bad.bmp");
	write_file(dir + "bad.png", "\x89PNG\r\n\x1a\n-not-really");
	OGL_texbmp(tex_load, 540, filt_rgb, "bad.png");
	EXPECT_EQ(last_alert_text.substr(0, 16), "PING-FILE ERROR!");
	write_file(dir + "bad.png", "GIF89a-a-different-picture");
	OGL_texbmp(tex_load, 540, filt_rgb, "bad.png");
	EXPECT_NE(last_alert_text.find("png_sig_cmp"), std::string::npos);
}

// Thousands of cut and flipped files: an alert or a picture each time, never a crash, and a
// texture already loaded under the id stays as it was when the new file fails.
TEST_F(Textures, CorruptImagesNeverCrashAndLeaveLoadedTexturesAlone)
{
	ASSERT_TRUE(write_png(dir + "good.png", pattern(16, 8, true), png_rgba, 0.0));
	ASSERT_TRUE(write_png(dir + "pal.png", pattern(9, 7, true), png_palette, 1.0 / 2.2));
	write_file(dir + "good.bmp", bmp_bytes(pattern(7, 5, false)));
	ASSERT_EQ(OGL_texbmp(tex_load, 550, filt_alpha_mean, "good.png"), 1);
	const picture before = texels(550);
	std::mt19937 rng(7);
	int loads = 0, refusals = 0;
	for (const char* name : {"good.png", "pal.png", "good.bmp"}) {
		const std::string orig = read_file(dir + name);
		const std::string ext = std::string(name).substr(std::string(name).size() - 4);
		for (int n = 0; n < 1200; n++) {
			std::string m = orig;
			if (n % 3 == 0) m.resize(rng() % m.size());   // cut
			else
				for (int f = 0; f < 1 + n % 4; f++) m[rng() % m.size()] ^= (char)(1 + rng() % 255);   // flipped
			write_file(dir + "mut" + ext, m);
			const int alerts = alert_count;
			const int got = OGL_texbmp(tex_scratch_only, 551, filt_alpha_mean, "mut" + ext);
			if (got) loads++;
			else refusals++;
			if (!got && m.size() >= 16 && ext == ".bmp") {
				EXPECT_GT(alert_count, alerts) << n;
			}
		}
		write_file(dir + "mut" + ext, orig.substr(0, orig.size() / 2));
		EXPECT_EQ(OGL_texbmp(tex_load, 550, filt_alpha_mean, "mut" + ext), 0);
		std::filesystem::remove(dir + "mut" + ext);
	}
	EXPECT_GT(refusals, 100);
	EXPECT_GT(loads, 10);
	const picture after = texels(550);
	ASSERT_EQ(after.px.size(), before.px.size());
	EXPECT_EQ(std::memcmp(after.px.data(), before.px.data(), after.px.size() * 4), 0);
}

// The sky's fixed textures are asked for on every flight pass while the world shows: they load
// once, and again only for a new texture resolution, another planet or a fresh context.
TEST_F(Textures, TheSkysFixedTexturesLoadOnceUntilResolutionPlanetOrContextChange)
{
	std::filesystem::create_directories(dir + "world");
	ASSERT_TRUE(write_png(dir + "world/static.png", pattern(64, 64, true), png_rgba, 0.0));
	auto mark = [&]() {   // a texel of our own, which only a reload replaces
		const unsigned char red[4] = {255, 0, 0, 255};
		glBindTexture(GL_TEXTURE_2D, 223);
		glTexSubImage2D(GL_TEXTURE_2D, 0, 0, 0, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, red);
	};
	auto marked = [&]() {
		const rgba c = texels(223).at(0, 0);
		return c.r == 255 && c.g == 0 && c.b == 0;
	};
	init_world_rendering(2);
	ASSERT_TRUE(glIsTexture(223));
	ASSERT_FALSE(marked());
	mark();
	for (int n = 0; n < 3; n++) init_world_rendering(2);
	EXPECT_TRUE(marked());
	mnw.tex_res = 3;
	init_world_rendering(2);
	EXPECT_FALSE(marked());
	mark();
	env.planet = 1;
	init_world_rendering(2);
	EXPECT_FALSE(marked());
	plat_offscreen_close();
	ASSERT_TRUE(plat_offscreen_open(64, 64)) << plat_offscreen_error();
	init_world_rendering(2);
	EXPECT_TRUE(glIsTexture(223));
}
