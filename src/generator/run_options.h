// The options of the tuning as a run uses them: read once at its start, so that no record is slowed by a key's name.
#pragma once

#include <cstdint>

#include "language/compiled_text.h"

namespace brindle {

// What an axis prints and where. Decimals per axis and output unit are of two kinds, because an absent key counts as 2
// for the grid of a metric axis but as 3 where its number is printed.
struct AxisOptions {
    struct Unit {
        int32_t grid_decimals[2];
        int32_t number_decimals[2];
        double factor[2];
        double step[2];  // one unit of the last digit of the grid
    };
    Unit millimetres, inches;
    OptionText address[2], start_address[2];
    bool axis1_rotary, axis2_rotary, rotary_in_degrees;
    double default_rotary_radius;  // millimetres
    bool modal;
    bool start_end_on_block;

    const Unit& In(bool in_inches) const { return in_inches ? inches : millimetres; }
    // The axis whose decimals and factor lengths take: 0 or 1.
    int LinearAxis() const { return axis1_rotary ? 1 : 0; }
};

struct ArcOptions {
    bool by_radius, by_subtended;
    bool modal;
    OptionText center_address[2];
    bool abs_from_start, abs_from_end, abs_is_absolute, inc_from_start, inc_from_end;
    OptionText radius_address;
    bool cw_positive_is_short, ccw_positive_is_short;
    OptionText subtended_address;
    bool subtended_positive_cw;
    double subtended_factor;
    int32_t subtended_decimals;
    double facet_tolerance;      // millimetres
    double largest_word_inches;  // `rMaxOrdMM`, which is consulted for output in inches
    double largest_word_metric;  // `rMaxOrdIN`, for output in millimetres
};

struct CodeOptions {
    OptionText abs, inc, inch, metric, horizontal, vertical, outside, inside, fly_on, fly_off;
    bool abs_inc_modal, units_modal, interp_modal;
    bool interp_depends_on_tool;
};

struct BlockOptions {
    OptionText number_address;
    int32_t initial_number, big_increment, small_increment;
    bool standard_delimiter;
    OptionText delimiter;
    bool use_space;
    bool trim_zeros, trim_point;
    bool errors_as_comments;
    OptionText open_comment, close_comment;
};

struct ProgramOptions {
    bool inches_auto, inches;
    bool absolute;  // of the main program
    bool use_subs, subs_first, sub_numbers_by_block;
    bool subs_absolute;  // holds only where the main program is absolute
    bool start_subs_at_center, end_subs_at_center;
    bool rotations_in_use, mirror_in_use;
    bool use_text;
    int32_t segment_limit;  // bytes, negative for none
    bool use_primary_tool, primary_tool_on;
    int32_t primary_tool;
    int32_t number_of_tools;
    bool default_tool;
    double shortest_rapid;  // millimetres
};

struct SubOptions {
    bool by_sequence;  // tested before the numbering by block
    int32_t main_offset, main_factor, sub_offset, sub_factor, total_offset;
    OptionText main_number;
    OptionText mirror_x, mirror_y, mirror_xy, mirror_reset;
    OptionText rotation_address, rotation_code, rotation_reset;
    int32_t rotation_decimals;
    double rotation_factor;
};

struct SpeedOptions {
    bool single, four_values;  // otherwise two values
    bool pro_rata;             // otherwise the nearest axis
    bool two_parameters;
    OptionText address[2];
    bool modal;
    bool use_factor;
    OptionText factor;
    bool as_value;  // otherwise an expression
    int32_t decimals;
    double tolerance;  // one unit of the last decimal: smaller speeds count as none
    double threshold5, threshold25, threshold50, threshold100;  // radii, millimetres
    char open_bracket, close_bracket;
};

struct RotationOptions {
    OptionText address;
    double factor;
    int32_t decimals;
    bool modal;
    bool positive_is_cw;
    double offset;  // degrees from axis 1 at which the machine's zero lies
    bool always_absolute, use_sign;
    OptionText auxiliary1, auxiliary2;
};

struct TextOptions {
    struct Height {
        double factor;
        int32_t decimals;
    };
    OptionText data_address, replace_from, replace_to;
    OptionText rotation_address;
    double rotation_factor;
    int32_t rotation_decimals;
    bool rotation_modal;
    OptionText height_address;
    Height height_inches, height_metric;
    bool height_modal;
    bool height_in_points;
};

struct FlyOptions {
    bool supported;
    bool code_with_following;
    double threshold;  // millimetres
};

struct RunOptions {
    explicit RunOptions(const CTextCompiler& compiler);

    AxisOptions axes;
    ArcOptions arcs;
    CodeOptions codes;
    BlockOptions blocks;
    ProgramOptions programs;
    FlyOptions fly;
    SubOptions subs;
    SpeedOptions speed;
    RotationOptions rotation;
    TextOptions text;
};

}  // namespace brindle
