// Fixed limits of the simulation and the numbering of an aircraft's parts.
// Every per-aircraft and per-part array in the records is sized by these.
#pragma once

constexpr int acf_max = 10;        // aircraft: 0 the pilot's, 1..9 others
constexpr int part_max = 73;       // parts of one aircraft, indexed `en`
constexpr int el_max = 10;         // spanwise elements of one part, indexed `el`
constexpr int azi_max = 4;         // azimuth stations per propeller ring
constexpr int engn_max = 8;        // engines and thrust points
constexpr int tank_max = 3;
constexpr int wpn_max = 24;        // weapon stations
constexpr int fail_max = 170;
constexpr int gear_max = 6;
constexpr int axis_max = 27;       // joystick axis functions
constexpr int joy_axis_max = 24;   // raw axes pooled from all devices
constexpr int joy_button_max = 120;   // raw buttons pooled from all devices
constexpr int joy_function_max = 119;   // button functions, 0 none
constexpr int boat_max = 6;

// Part numbering by index.
constexpr int en_engn_lo = 0,   en_engn_hi = 7;
constexpr int en_wing1L = 8,    en_wing1R = 9;
constexpr int en_wing2L = 10,   en_wing2R = 11;
constexpr int en_wing3L = 12,   en_wing3R = 13;
constexpr int en_wing4L = 14,   en_wing4R = 15;
constexpr int en_hstbL = 16,    en_hstbR = 17;
constexpr int en_vstb1 = 18,    en_vstb2 = 19;
constexpr int en_mwing_lo = 20, en_mwing_hi = 27;
constexpr int en_pyla_lo = 28,  en_pyla_hi = 35;
constexpr int en_pylb_lo = 36,  en_pylb_hi = 43;
constexpr int en_fuse = 44;
constexpr int en_mbody_lo = 45, en_mbody_hi = 52;
constexpr int en_nace_lo = 53,  en_nace_hi = 60;
constexpr int en_fair_lo = 61,  en_fair_hi = 66;
constexpr int en_gear_lo = 67,  en_gear_hi = 72;

// Body cross-sections: stations and points round each station.
constexpr int fuse_sta = 20, fuse_pts = 18;
constexpr int body_sta = 12, body_pts = 18;   // miscellaneous bodies and nacelles
constexpr int fair_sta = 8,  fair_pts = 10;
constexpr int wing_pts = 14;                  // parts up to 43: els[en] stations of 14 points
