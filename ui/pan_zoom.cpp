// Zoom keys and buttons. Over the picture they zoom the view; the map windows' panning
// comes with the map.
#include "ui/HL_UI.h"
#include "core/HL_TYPES.h"
#include <algorithm>

void handle_pan_zoom(int code)
{
	float k = 1.0f;
	if (code == 31745) k = 1.1f;
	else if (code == 50004) k = 1.01f;
	else if (code == 31746) k = 1.0f / 1.1f;
	else if (code == 50005) k = 1.0f / 1.01f;
	if (k != 1.0f) ren.zoom_req = std::clamp(ren.zoom_req * k, 1.0f, 5000.0f);
}
