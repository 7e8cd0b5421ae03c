// Maths helpers shared by every subsystem: constants of the two planets, the local
// frame and its conversions to latitude, longitude and elevation, attitude helpers,
// arithmetic helpers and the tables filled at start.
#pragma once

// The local frame's reference point sits at the centre of the loaded region.
extern const float lat_secs[2], lon_secs[2];        // region size per planet (deg)
extern const float lat_secs_os[2], lon_secs_os[2];  // reference point offset from its south-west corner

constexpr int randrat_max = 10000;
extern float randrat[randrat_max];   // repeatable ratios 0..0.9999
extern float lookup_sin[361], lookup_cos[361];

void init_con();                    // the fixed constants of con
void set_planet_specs(int planet);  // 0 Earth, 1 Mars: the planet values of con
void init_tables();                 // randrat, lookup_sin, lookup_cos
float ran01();                      // a random ratio 0..1 from the C library's generator, which start-up seeds
float ran_between(float lo, float hi);   // the same, spread over lo..hi

// Arithmetic.
float fltlim(float x, float lo, float hi);
int intlim(int i, int lo, int hi);
inline int intmax2(int a, int b) { return a > b ? a : b; }
inline int intmin2(int a, int b) { return a < b ? a : b; }
float fltmin2(float a, float b);
float fltmax2(float a, float b);
float fltmax3(float a, float b, float c);
float fltmin4(float a, float b, float c, float d);
float fltmax4(float a, float b, float c, float d);
float flt_abs(float x);
float sqr(float x);
int intrange(int i, int lo, int hi);
int intround(float x);
float pythag(float a, float b);
float pythag(float a, float b, float c);
float interp(float x1, float y1, float x2, float y2, float x, int extrapolate);
float fltwrap(float x, float lo, float hi);
double dobwrap(double x, double lo, double hi);
float fallout(float x, float lo, float hi);
float pulse(float offset);
int check_nan(float x);
int dec_needed(float x);
float time_sec();   // monotonic wall time (s)

// The loaded region.
int ret_xz_inreg(float x, float z);
int ret_latlon_inreg(double lat, double lon);
float z_north_os(float lat, float lon);
double ret_lat_ref();
double ret_lon_ref();

// Local frame <-> latitude, longitude (deg) and elevation above the sphere (m).
void xdob_latlonel_with_xyz(double& lat, double& lon, double& ele, double x, double y, double z);
void xdob_xyz_with_latlonel(double& x, double& y, double& z, double lat, double lon, double ele);
void xdob_xyz_with_latlonel(float xyz[3], double lat, double lon, double ele);   // the same, as drawing keeps it
void latlonel_with_xyz(float& lat, float& lon, float& ele, float x, float y, float z);
void xyz_with_latlonel(float& x, float& y, float& z, float lat, float lon, float ele);
// The same about any reference point, and the rotation from such a frame to the horizon at a place.
// A place a number of metres east and north of another, on the planet's sphere.
void latlon_offset(double lat, double lon, double east, double north, double* lat2, double* lon2);
void xdob_latlonel_with_xyz_ref(double& lat, double& lon, double& ele, double x, double y, double z, double lat_ref, double lon_ref);
void xdob_xyz_with_latlonel_ref(double& x, double& y, double& z, double lat, double lon, double ele, double lat_ref, double lon_ref);
void ret_q_horizon(double lat, double lon, double lat_ref, double lon_ref, float q[4]);

// Aircraft axes <-> local frame, rolling, then pitching, then yawing.
void any_to_wrl(float x, float y, float z, float* X, float* Y, float* Z,
                float sin_psi, float cos_psi, float sin_the, float cos_the, float sin_phi, float cos_phi);
void wrl_to_any(float X, float Y, float Z, float* x, float* y, float* z,
                float sin_psi, float cos_psi, float sin_the, float cos_the, float sin_phi, float cos_phi);

// Quaternions: float[4], w first.
void init_quaternion(float psi, float the, float phi, float q[4]);
void mul_quat(const float a[4], const float b[4], float out[4]);
void quat_to_euler(float q[4], float* psi, float* the, float* phi);
void rot_quat(const float q[4], float x, float y, float z, float* x2, float* y2, float* z2);
