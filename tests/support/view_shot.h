// A picture taken through nimbara-fly view, for tests that look at what the frame drew.
#pragma once
#include <png.h>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <vector>

struct ViewShot : ::testing::Test {
	std::string dir = std::string(NIMBARA_TEST_TREE) + "/" + ::testing::UnitTest::GetInstance()->current_test_info()->name() + "/";
	int W = 0, H = 0;
	std::vector<unsigned char> px;   // RGBA, row 0 at the top
	void SetUp() override
	{
		std::filesystem::remove_all(dir);
		std::filesystem::create_directories(dir);
	}
	bool shoot(const std::string& args, const char* size = "400x300")
	{
		const std::string out = dir + "v.png";
		const std::string cmd = std::string(NIMBARA_FLY) + " view --tree " + NIMBARA_DATA_TREE + " --size " + size + " " + args + " --png " + out +
		                        " > " + dir + "log 2>&1";
		if (std::system(cmd.c_str()) != 0) return false;
		png_image img{};
		img.version = PNG_IMAGE_VERSION;
		if (!png_image_begin_read_from_file(&img, out.c_str())) return false;
		img.format = PNG_FORMAT_RGBA;
		W = (int)img.width;
		H = (int)img.height;
		px.assign(PNG_IMAGE_SIZE(img), 0);
		return png_image_finish_read(&img, nullptr, px.data(), 0, nullptr) != 0;
	}
	// A tree of our own that shares everything with the real one, so that what the view says
	// in Error.out is its own; returns its path, with a trailing '/'.
	std::string own_tree()
	{
		const std::string tree = dir + "tree/";
		std::filesystem::remove_all(tree);
		std::filesystem::create_directories(tree + "Aircraft");
		for (const auto& e : std::filesystem::directory_iterator(NIMBARA_DATA_TREE))
			if (e.is_directory() && e.path().filename() != "Aircraft") std::filesystem::create_symlink(e.path(), tree + e.path().filename().string());
		for (const auto& e : std::filesystem::directory_iterator(std::string(NIMBARA_DATA_TREE) + "/Aircraft"))
			std::filesystem::create_symlink(e.path(), tree + "Aircraft/" + e.path().filename().string());
		return tree;
	}
#ifdef NIMBARA_FRAMEWRIGHT
	// The trainer with the readable lines added, in a tree of our own (an aircraft must lie
	// inside the program's folder). The arguments that make the view fly it; empty when it could
	// not be built.
	std::string own_trainer(const std::string& lines)
	{
		const std::string tree = own_tree();
		const std::string src = dir + "Plane.txt", acf = tree + "Aircraft/Plane.acf";
		const std::string dump = std::string(NIMBARA_FRAMEWRIGHT) + " dump \"" + NIMBARA_DATA_TREE + "/Aircraft/General Aviation/Wren 180/Wren 180.acf\" > " + src;
		if (std::system(dump.c_str()) != 0) return "";
		std::ofstream(src, std::ios::app) << lines;
		if (std::system((std::string(NIMBARA_FRAMEWRIGHT) + " build " + src + " " + acf + " > " + dir + "build.log 2>&1").c_str()) != 0) return "";
		return " --aircraft \"" + acf + "\" --tree \"" + tree + "\"";
	}
#endif
	const unsigned char* at(int x, int y_from_bottom) const { return &px[((size_t)(H - 1 - y_from_bottom) * W + x) * 4]; }
	// The white needles crossing the circle of radius r round (cx, cy), panel pixels from the
	// bottom left: runs of bright samples, each its middle angle (degrees clockwise from up) and
	// its width across; angles between skip_lo and skip_hi are passed over.
	struct spoke {
		double angle, width_px;
	};
	std::vector<spoke> spokes(double cx, double cy, double r, double skip_lo = 0, double skip_hi = 0) const
	{
		const int n = 1440;
		std::vector<int> bright(n);
		for (int k = 0; k < n; k++) {
			const double a = k * 360.0 / n, rad = a * M_PI / 180.0;
			// The pixel that covers the point: pixel k spans k to k + 1 of the panel.
			const int x = (int)std::floor(cx + r * std::sin(rad)), y = (int)std::floor(cy + r * std::cos(rad));
			const unsigned char* p = at(x, y);
			bright[k] = p[0] + p[1] + p[2] > 300 && !(a > skip_lo && a < skip_hi);
		}
		int start = 0;
		while (start < n && bright[start]) start++;   // begin in the dark so no run is cut in two
		std::vector<spoke> out;
		for (int i = 0; i < n; i++) {
			const int k = (start + i) % n;
			if (!bright[k]) continue;
			int len = 0;
			while (len < n && bright[(k + len) % n]) len++;
			out.push_back({std::fmod((k + (len - 1) * 0.5) * 360.0 / n, 360.0), len * 360.0 / n * M_PI / 180.0 * r});
			i += len;
		}
		return out;
	}
	int holes() const
	{
		int n = 0;
		for (size_t k = 0; k < px.size(); k += 4) n += px[k] == 255 && px[k + 1] == 0 && px[k + 2] == 255;
		return n;
	}
	double mean(int channel) const
	{
		double s = 0.0;
		for (size_t k = 0; k < px.size(); k += 4) s += px[k + channel];
		return s / (px.size() / 4);
	}
};
