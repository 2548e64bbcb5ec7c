// Exports of the geometry.
#include "api/exports.h"
#include "brindle/brindle.h"

using namespace brindle;

int GBrn_StartMain(const wchar_t* name, double center_x, double center_y, int inside, int horizontal) {
    return Export([&] { Session().Records().StartMain(In(name), {center_x, center_y}, inside != 0, horizontal != 0); });
}

int GBrn_StartSub(const wchar_t* name, double center_x, double center_y, int inside, int horizontal) {
    return Export([&] { Session().Records().StartSub(In(name), {center_x, center_y}, inside != 0, horizontal != 0); });
}

int GBrn_AddLine(short tool_id, short line_type, double cut_width, double start_x, double start_y, double end_x,
                 double end_y, double bridge_width, short bridge_count) {
    return Export([&] {
        const CutAttributes cut{line_type, tool_id, cut_width, bridge_count, bridge_width};
        Session().Records().AddLine(cut, {start_x, start_y}, {end_x, end_y});
    });
}

int GBrn_AddArc(short tool_id, short line_type, double cut_width, double start_x, double start_y, double end_x,
                double end_y, double center_x, double center_y, double radius, double bridge_width,
                short bridge_count) {
    return Export([&] {
        const CutAttributes cut{line_type, tool_id, cut_width, bridge_count, bridge_width};
        Session().Records().AddArc(cut, {start_x, start_y}, {end_x, end_y}, {center_x, center_y}, radius);
    });
}

int GBrn_AddText(short tool_id, short line_type, double start_x, double start_y, double end_x, double end_y,
                 double first_length, double rotation, double extra_value, double second_length, double height,
                 const wchar_t* text) {
    return Export([&] {
        Session().Records().AddText({.tool_id = tool_id,
                                     .line_type = line_type,
                                     .height = height,
                                     .start = {start_x, start_y},
                                     .end = {end_x, end_y},
                                     .first_length = first_length,
                                     .rotation = rotation,
                                     .extra_value = extra_value,
                                     .second_length = second_length,
                                     .text = In(text)});
    });
}

int GBrn_AddInclude(const wchar_t* name, double x, double y, double center_x, double center_y, double rotation,
                    int mirror_x, int mirror_y) {
    return Export([&] {
        Session().Records().AddInclude(
            {In(name), {x, y}, {center_x, center_y}, rotation, mirror_x != 0, mirror_y != 0});
    });
}

int GBrn_OpenCF2File(const wchar_t* path) {
    return Export([&] { Session().OpenDrawing(In(path)); });
}
