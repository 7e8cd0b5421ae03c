// Reading a quadrant's linear features into the block's cells, one list at a time.
#pragma once
#include "world/quadrant_file.h"

struct line_reader {
	int kind = 0;
	struct { int i_lo, j_lo, i_hi, j_hi; } cells{};
	bool have_old = false;
	double old_x = 0, old_z = 0;
	int prev_i = -1, prev_j = -1;   // the cell the chain's last segment ended in
	bool tower_pending = false;   // the last tower waits for its next
	int tower_i = 0, tower_j = 0, tower_n = 0;

	void start(int kind, int i_from, int j_from, int imax, int jmax);
	void point(double lat, double lon, bool last);   // the next point of the current chain
	void finish();                                    // the tidy pass once the list is read
private:
	void segment(double x, double z, bool last);
	void towers(double x, double z, bool last);
	void unlink_tower(int i, int j, int n);
};

bool inside_cell(int i, int j, float x, float z);   // in either triangle of cell (i, j), x-z plane
