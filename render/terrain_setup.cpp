// The block's ground set up for drawing: the vertex normals, relief exaggerated four
// times in the lighting. The textures of each cell come with the terrain drawing.
#include "render/HL_GRAPH.h"
#include "world/scenery.h"
#include "core/HL_TYPES.h"
#include <cmath>

float planenrml[regn_dim_i][regn_dim_j][3];

void set_terrain_normals()
{
	const int p = env.planet == 1 ? 1 : 0;
	for (int i = 0; i <= regn_imax[p]; i++)
		for (int j = 0; j <= regn_jmax[p]; j++) {
			// The last row and column take the differences that end there.
			const int i0 = i < regn_imax[p] ? i : i - 1, j0 = j < regn_jmax[p] ? j : j - 1;
			const float* o = planexyz[i0][j0];
			const float* e = planexyz[i0 + 1][j0];
			const float* n = planexyz[i0][j0 + 1];
			const float v1[3] = {e[0] - o[0], 4.0f * (e[1] - o[1]), e[2] - o[2]};
			const float v2[3] = {n[0] - o[0], 4.0f * (n[1] - o[1]), n[2] - o[2]};
			float c[3] = {v1[1] * v2[2] - v1[2] * v2[1], v1[2] * v2[0] - v1[0] * v2[2], v1[0] * v2[1] - v1[1] * v2[0]};
			const float len = std::sqrt(c[0] * c[0] + c[1] * c[1] + c[2] * c[2]);
			if (len > 0.0f) for (float& k : c) k /= len;
			else { c[0] = c[2] = 0.0f; c[1] = 1.0f; }
			for (int k = 0; k < 3; k++) planenrml[i][j][k] = c[k];
		}
}
