// The bitmap fonts' layout, shared by the drawing code and the tool that renders the sheet:
// where each charset's cells sit, which cell a character takes and how far it advances.
#pragma once

struct charset_spec {
	int tex;           // texture id of the sheet
	int s0, t0;        // the first cell, texels from the sheet's bottom left
	int ds, dt;        // cell size
	int pitch;         // advance of every character; 0 proportional
	int per_row;       // cells a row
};

const charset_spec* charset_of(int charset);   // nullptr outside 100 to 103
int glyph_index(unsigned char c);              // the cell of a character in charsets 100 to 102, -1 when it has none
int glyph_advance(unsigned char c);            // the proportional font's advance; 0 outside the table
