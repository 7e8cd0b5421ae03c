#include "render/sun_moon.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include <cmath>

float hours, declination_deg, side_time_hrs, PhaseFraction, moon_hours, moon_brt;
int moon_tex = 228;
sky_light lgt[3];

namespace {

constexpr double deg = M_PI / 180.0;
constexpr double synodic_month = 29.5306;
constexpr double known_new_moon_jd = 2451550.26;   // 6 January 2000, 18:14 UTC

double wrap(double v, double lo, double hi)
{
	const double span = hi - lo;
	v = std::fmod(v - lo, span);
	return (v < 0.0 ? v + span : v) + lo;
}

bool leap(int y) { return (y % 4 == 0 && y % 100 != 0) || y % 400 == 0; }

}  // namespace

int day_of_year(int year, int month, int mday)
{
	static const int before[12] = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334};
	return before[month - 1] + mday - 1 + (leap(year) && month > 2 ? 1 : 0);
}

double julian_day_utc(int year, int day_of_year, double utc_sec)
{
	// 1 January of the year at 0 h, from the Gregorian calendar's day count.
	const int y = year - 1;
	const long days = 365L * y + y / 4 - y / 100 + y / 400;   // days before 1 January of year, from 1 January of year 1
	return 1721425.5 + (double)days + day_of_year + utc_sec / 86400.0;
}

void solar_position(double jd, double lon_deg, double* true_solar_hours, double* declination)
{
	const double T = (jd - 2451545.0) / 36525.0;
	const double L0 = wrap(280.46646 + T * (36000.76983 + T * 0.0003032), 0.0, 360.0);
	const double M = 357.52911 + T * (35999.05029 - 0.0001537 * T);
	const double e = 0.016708634 - T * (0.000042037 + 0.0000001267 * T);
	const double C = std::sin(M * deg) * (1.914602 - T * (0.004817 + 0.000014 * T)) + std::sin(2 * M * deg) * (0.019993 - 0.000101 * T) +
	                 std::sin(3 * M * deg) * 0.000289;
	const double omega = 125.04 - 1934.136 * T;
	const double lambda = L0 + C - 0.00569 - 0.00478 * std::sin(omega * deg);
	const double eps0 = 23.0 + (26.0 + (21.448 - T * (46.815 + T * (0.00059 - T * 0.001813))) / 60.0) / 60.0;
	const double eps = eps0 + 0.00256 * std::cos(omega * deg);
	*declination = std::asin(std::sin(eps * deg) * std::sin(lambda * deg)) / deg;
	const double y = std::pow(std::tan(eps * deg / 2.0), 2.0);
	const double eq_time = 4.0 / deg * (y * std::sin(2 * L0 * deg) - 2 * e * std::sin(M * deg) + 4 * e * y * std::sin(M * deg) * std::cos(2 * L0 * deg) -
	                                    0.5 * y * y * std::sin(4 * L0 * deg) - 1.25 * e * e * std::sin(2 * M * deg));   // minutes
	const double utc_min = (jd + 0.5 - std::floor(jd + 0.5)) * 1440.0;
	*true_solar_hours = wrap(utc_min + eq_time + 4.0 * lon_deg, 0.0, 1440.0) / 60.0;
}

float moon_phase(double jd) { return (float)wrap((jd - known_new_moon_jd) / synodic_month, 0.0, 1.0); }

double sidereal_hours(double jd, double lon_deg)
{
	const double d = jd - 2451545.0;
	return wrap(18.697374558 + 24.06570982441908 * d + lon_deg / 15.0, 0.0, 24.0);
}

// (0, 1, 0) turned by the declination about x, the azimuth about z and the latitude about x.
void light_direction(float lat, float azi, float dec, float* psi, float* the)
{
	double x = 0.0, y = 1.0, z = 0.0;
	auto rot_x = [&](double a) { const double c = std::cos(a * deg), s = std::sin(a * deg), ny = c * y - s * z; z = s * y + c * z; y = ny; };
	auto rot_z = [&](double a) { const double c = std::cos(a * deg), s = std::sin(a * deg), nx = c * x - s * y; y = s * x + c * y; x = nx; };
	rot_x(dec);
	rot_z(azi);
	rot_x(lat);
	*psi = (float)wrap(std::atan2(x, -z) / deg, 0.0, 360.0);
	*the = (float)(std::atan2(y, std::sqrt(x * x + z * z)) / deg);
}

void update_sun_moon(int year, int day_of_year, float zulu_sec, double lat, double lon)
{
	const double jd = julian_day_utc(year, day_of_year, zulu_sec);
	double tst = 0.0, dec = 0.0;
	solar_position(jd, lon, &tst, &dec);
	hours = (float)tst;
	declination_deg = (float)-dec;   // the lights turn by the declination the other way
	side_time_hrs = (float)sidereal_hours(jd, lon);
	PhaseFraction = moon_phase(jd);
	moon_tex = (int)std::fmin(std::fmax(228.0f + 22.0f * (1.0f - PhaseFraction), 228.0f), 250.0f);
	moon_brt = 1.0f - std::fabs(PhaseFraction - 0.5f);
	moon_hours = (float)wrap(hours - 24.0 * PhaseFraction, 0.0, 24.0);
	const float hour_of[2] = {hours, moon_hours};
	for (int k = 0; k < 2; k++) {
		lgt[k].lat = (float)lat;
		lgt[k].azi = (float)wrap((hour_of[k] - 12.0) / 24.0 * 360.0, -180.0, 180.0);
		lgt[k].dec = declination_deg;
		light_direction(lgt[k].lat, lgt[k].azi, lgt[k].dec, &lgt[k].psi, &lgt[k].the);
	}
}

void update_sun_moon()
{
	const int year = mnw.locl_year > 0 ? mnw.locl_year : 2000;
	const int days = leap(year) ? 366 : 365;
	// The UTC day: the local date less the zone the local and UTC clocks differ by.
	const double zone_h = wrap((mnw.locl_time - mnw.zulu_time) / 3600.0, -12.0, 12.0);
	const double utc_days = mnw.locl_date_jan1 + (mnw.locl_time / 3600.0 - zone_h) / 24.0;
	const int day = (int)std::floor(utc_days);
	update_sun_moon(year, (int)wrap(day, 0, days), (float)((utc_days - day) * 86400.0), flt[0].dob_lat, flt[0].dob_lon);
}
