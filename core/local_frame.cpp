// The local frame: flat, tangent to the sphere at the centre of the loaded region,
// x east, y up, z south. Conversions to and from latitude, longitude and elevation,
// and between aircraft axes and the frame.
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include <cmath>

static constexpr double deg2rad = M_PI / 180.0;

double ret_lat_ref() { return env.lat_sou + lat_secs_os[env.planet & 1]; }
double ret_lon_ref() { return env.lon_wes + lon_secs_os[env.planet & 1]; }

int ret_xz_inreg(float x, float z)
{
	return x >= env.lo_x && x <= env.hi_x && z >= env.lo_z && z <= env.hi_z;
}

int ret_latlon_inreg(double lat, double lon)
{
	int pl = env.planet & 1;
	return lat >= env.lat_sou && lat <= env.lat_sou + 2.0 * lat_secs_os[pl] &&
	       lon >= env.lon_wes && lon <= env.lon_wes + 2.0 * lon_secs_os[pl];
}

void latlon_offset(double lat, double lon, double east, double north, double* lat2, double* lon2)
{
	const double m_per_deg = con.planet_rad * deg2rad;
	*lat2 = lat + north / m_per_deg;
	*lon2 = lon + east / (m_per_deg * std::fmax(std::cos(lat * deg2rad), 1e-6));
}

float z_north_os(float lat, float lon)
{
	return (float)((ret_lon_ref() - lon) * std::sin(lat * deg2rad));
}

void xdob_latlonel_with_xyz(double& lat, double& lon, double& ele, double x, double y, double z)
{
	xdob_latlonel_with_xyz_ref(lat, lon, ele, x, y, z, ret_lat_ref(), ret_lon_ref());
}

void xdob_xyz_with_latlonel(double& x, double& y, double& z, double lat, double lon, double ele)
{
	xdob_xyz_with_latlonel_ref(x, y, z, lat, lon, ele, ret_lat_ref(), ret_lon_ref());
}

void xdob_xyz_with_latlonel(float xyz[3], double lat, double lon, double ele)
{
	double x, y, z;
	xdob_xyz_with_latlonel(x, y, z, lat, lon, ele);
	xyz[0] = (float)x;
	xyz[1] = (float)y;
	xyz[2] = (float)z;
}

void xdob_latlonel_with_xyz_ref(double& lat, double& lon, double& ele, double x, double y, double z, double lat_ref, double lon_ref)
{
	double R = con.planet_rad;
	double s = std::sin(lat_ref * deg2rad), c = std::cos(lat_ref * deg2rad);
	double a = z * s + (y + R) * c;   // toward the equator on the reference meridian
	double b = z * c - (y + R) * s;   // toward the south pole
	double r = std::sqrt(a * a + x * x + b * b);
	if (!(r > 0.0)) { lat = lat_ref; lon = lon_ref; ele = -R; return; }
	ele = r - R;
	lat = std::asin(std::fmax(-1.0, std::fmin(1.0, -b / r))) / deg2rad;
	// atan2 rather than asin of x/(r cos lat): the same inside the region, and finite at the poles.
	lon = dobwrap(std::atan2(x, a) / deg2rad + lon_ref, -180.0, 180.0);
}

void xdob_xyz_with_latlonel_ref(double& x, double& y, double& z, double lat, double lon, double ele, double lat_ref, double lon_ref)
{
	double R = con.planet_rad;
	double s = std::sin(lat_ref * deg2rad), c = std::cos(lat_ref * deg2rad);
	double r = R + ele;
	double dlon = dobwrap((lon - lon_ref) * deg2rad, -M_PI, M_PI);
	double cl = std::cos(lat * deg2rad), sl = std::sin(lat * deg2rad);
	x = r * cl * std::sin(dlon);
	double a = r * cl * std::cos(dlon);
	double b = -r * sl;
	z = a * s + b * c;
	y = a * c - b * s - R;
}

void ret_q_horizon(double lat, double lon, double lat_ref, double lon_ref, float q[4])
{
	double dlat = dobwrap(lat - lat_ref, -90.0, 90.0);
	double dlon = dobwrap(lon - lon_ref, -180.0, 180.0);
	double a = lat_ref - dlat;
	const double h = 0.5 * M_PI / 180.0;
	double sA = std::sin(a * h), cA = std::cos(a * h);
	double sC = std::sin(lat_ref * h), cC = std::cos(lat_ref * h);
	double sL = std::sin(dlon * h), cL = std::cos(dlon * h);
	q[0] = (float)(sC * cL * sA + cC * cL * cA);
	q[1] = (float)(sC * sL * sA - cC * sL * cA);
	q[2] = (float)(sC * cL * cA - cC * cL * sA);
	q[3] = (float)(sC * sL * cA + cC * sL * sA);
}

// Single precision at the interface; the arithmetic stays in double, where the
// planet's radius still resolves a millimetre.
void latlonel_with_xyz(float& lat, float& lon, float& ele, float x, float y, float z)
{
	double la, lo, el;
	xdob_latlonel_with_xyz(la, lo, el, x, y, z);
	lat = (float)la; lon = (float)lo; ele = (float)el;
}

void xyz_with_latlonel(float& x, float& y, float& z, float lat, float lon, float ele)
{
	double dx, dy, dz;
	xdob_xyz_with_latlonel(dx, dy, dz, lat, lon, ele);
	x = (float)dx; y = (float)dy; z = (float)dz;
}

void any_to_wrl(float x, float y, float z, float* X, float* Y, float* Z,
                float sin_psi, float cos_psi, float sin_the, float cos_the, float sin_phi, float cos_phi)
{
	float a = y * sin_phi + x * cos_phi;
	float b = y * cos_phi - x * sin_phi;
	float c = b * cos_the - z * sin_the;
	float d = b * sin_the + z * cos_the;
	*X = a * cos_psi - d * sin_psi;
	*Y = c;
	*Z = a * sin_psi + d * cos_psi;
}

void wrl_to_any(float X, float Y, float Z, float* x, float* y, float* z,
                float sin_psi, float cos_psi, float sin_the, float cos_the, float sin_phi, float cos_phi)
{
	float a = X * cos_psi + Z * sin_psi;
	float d = -X * sin_psi + Z * cos_psi;
	float c = Y;
	float b = c * cos_the + d * sin_the;
	*z = -c * sin_the + d * cos_the;
	*x = a * cos_phi - b * sin_phi;
	*y = a * sin_phi + b * cos_phi;
}
