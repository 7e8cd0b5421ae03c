// Rendering state (`ren`) and scene lists (`scn`). The drawing steps fill them.
#pragma once

constexpr int tex_id_max = 9142;   // texture ids 0 to 9141

struct ren_struct {
	int DL_carr, DL_frig, DL_opla, DL_orig;   // display lists of the ships and platforms
	int tex_clamp_avail, add_env_avail, dis_fog_avail, tex_comp_avail;   // what the OpenGL driver offers
	int mod_add_avail;   // a unit can add one texture times another to what is below (lamp light on the ground)
	int num_tex_units, maxtexdim;
	float max_iso;
	// The cloud grid and its shadow, filled by the cloud drawing.
	float cld_buc00_origin_x, cld_buc00_origin_z;
	float all_bucs_dx, all_bucs_dh, all_bucs_dz, cld_buc_dx, cld_buc_dz;
	float shad_x1, shad_z1, shad_dspm, shad_dtpm;
	int shadow_final_tex;
	int ground_is_vis;          // the terrain is drawn, so the block's files are read
	int stars_are_vis;          // no overcast deck overhead
	float current_alpha;        // everything drawn is this opaque, normally 1
	int night_vision_on;        // all colours turn green
	float ins_brt, hud_brt;     // instrument and HUD light brightness, 0..1
	// The light of each weather set by time pixel (0 clean, 1 misty, 2 foggy, 3 high, 4 overcast).
	float raw_sun_amb[5][512][3], raw_sun_dir[5][512][3], raw_sun_rgb[5][512][3], raw_mon_rgb[5][512][3];
	float raw_wat_rgb[5][512][3], raw_cld_drk[5][512][3], raw_cld_lgt[5][512][3];
	float lgt_amb[3], lgt_dir[3];   // the light of the moment
	float sun_rgb[3], mon_rgb[3], wat_rgb[3], cld_drk[3], cld_lgt[3];   // the sun's and moon's discs, water, the sides of clouds
	unsigned char raw_sky_256[5][16][64][16][3];   // sky colours: [set][time frame][azimuth column][elevation row][rgb]
	unsigned char sky_256[16][64][3];              // the sky of the moment, [row][column][rgb]
	float fog_rgb[4];
	int view_menu_TYPE, view_menu_ACTION;   // a view or view action asked for, -1 or 0 for none
	int view_is_external;
	float view_xyz[3];          // the eye, world metres
	float view_ele;             // its height above sea level, metres
	float basic_the, basic_psi, basic_phi;   // the body's or the look-at angles, degrees
	float cock_the, cock_psi, cock_phi;      // the eye's turn within the cockpit, degrees
	float off_lat_deg, off_vrt_deg, off_phi_deg, off_lat_rat, off_vrt_rat;
	float final_the, final_psi, final_phi;   // where the picture's centre looks, world angles
	float FOV;                  // horizontal field of view, degrees
	float zoom_req, zoom_act, circ_dist;
	float spot_x, spot_y, spot_z, spot_vx, spot_vy, spot_vz;   // a point by the runway or the path, and its drift
	float dome_rad;             // radius of the sky dome, metres
	float xyz_lo_cone_sky[3], xyz_hi_cone_sky[3];   // the box round what the view sees of the sky
	float deg_per_mtr_x, deg_per_mtr_z;
	int view_type_act;          // the view shown, 1500 the forward panel
	int cockpit_lite_on;        // the lit forward panel replaces the day one
	int view_bmp_avail[9];      // the aircraft brings its own panel bitmap of that index
	float circ_psi_rad, circ_the_rad;   // the circling views' bearing and elevation of the eye
	int mouse_look;             // the view follows the mouse
	float mouse_look_os_psi, mouse_look_os_the;   // the view's offset by the mouse, degrees
	float local_y_vp;           // the ground's height under the viewpoint
	int wpn_to_track;           // the weapon slot the camera follows, -1 for none
	int trans_panel;            // the panel drawn see-through
	int show_path;              // flight-path display level, 0 to 7
	int sunglasses_on;
	int vert1, vert2;           // the picture turned a quarter left or right, for a monitor on its side
	float pan_brt;              // the panel flood light, 0..1
	// Dome projection: that many pictures side by side, each turned by its reference angles.
	int elum_renders, elum_dx, elum_dy;
	float elum_ref_the, elum_ref_psi, elum_ref_phi;
	// The ground the view can see: a quadrilateral round the eye, its box, and the grid range to draw.
	float x0_cone_ground, z0_cone_ground, x1_cone_ground, z1_cone_ground;
	float x2_cone_ground, z2_cone_ground, x3_cone_ground, z3_cone_ground;
	float xyz_lo_cone_ground[3], xyz_hi_cone_ground[3];
	int view_oct;               // octant of final_psi, 1 to 8
	int ic_plot, jc_plot, i1_plot, j1_plot, i2_plot, j2_plot;
	int planet_is_vis;          // high enough that the planet is drawn whole
	int DL_planet_real;         // display list of the whole planet, 0 until built
	float lite_rat_on;          // how far the lights of night are on, 0..1
	float glare_rat;            // the sun's glare in the eye, 0..1
	float act_puf_rad;          // a cloud puff's radius, metres
	int draw_shadows;           // cloud shadows and the sun's glitter on water are wanted
	int DL_stars[6];            // the stars by magnitude band, brightest first
	// The dominant light's direction, and how far a shadow slides per metre of height.
	float sin_azi_any, cos_azi_any, sin_dec_any, cos_dec_any, lgt_dx_by_dy, lgt_dz_by_dy;
	// The terrain's second texture: cloud shadows, else the landing light's pool, else the sun's glitter.
	int plot_lan_litemap, plot_sun_reflect, shadow_build_tex, sha_or_lit_or_sun;
	float shadow_alpha, shad_yc;
	float light_xyz[3], light_x_cen, light_z_cen, light_ds_dx, light_ds_dz, light_dt_dx, light_dt_dz;
	float reflect_ds_dx, reflect_ds_dz, reflect_dt_dx, reflect_dt_dz;
	// Per texture id, the id being the OpenGL texture name as well.
	int tex_dx_vis[tex_id_max], tex_dy_vis[tex_id_max];   // the picture, after scaling
	int tex_dx_tot[tex_id_max], tex_dy_tot[tex_id_max];   // the power-of-two texture it lives in
	unsigned tex_vram[tex_id_max];   // bytes given to the driver, every mip level; 0 for nothing loaded
	int tex_tiles[49];          // land textures: square tiles side by side in the sheet
	// Land use to land texture, read from the land-use table; water textures first.
	int tex_of_use[97];
	int num_land_texes;
	int tex_is_water[49];
	// The ground's culling for this frame, and the sea's drift.
	float cone_buffer_ground, cone_dissqr_ground;
	float wave_osx_units, wave_osz_units, sin_wave_psi_tpu, cos_wave_psi_tpu;
};

struct scn_struct {
	int num_objects;
	int cont_inited;             // the contrails of this flight have begun
	int fire_avail, fire_on;     // a fire burns in the block
	float firexyz[10][3];
	float vis_scale;   // size of the pilot's aircraft for effects
	float sqr_max_dis_moving, sqr_max_dis_parked, sqr_max_dis_lite;   // traffic drawn within these, squared metres
	int vis_math_level;   // how much of the flight model's working is shown, 0..5
};
