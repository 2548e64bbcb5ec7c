#include "host/picture/scene_painter.h"

#include <cairo-svg.h>
#include <cairo.h>

#include <algorithm>
#include <cmath>
#include <memory>

#include "host/console/messages.h"
#include "host/picture/axis_ticks.h"
#include "scene/scene_colors.h"

namespace brindle::host {
namespace {

// Pixels.
constexpr double kMargin = 16.0;
constexpr double kAxisMargin = 58.0;  // room for the labels of the upright axis
constexpr double kPadding = 18.0;     // between frame and scene
constexpr double kFontSize = 12.0;
constexpr double kTitleSize = 15.0;
constexpr double kRow = 18.0;  // of the legend
constexpr double kSwatch = 26.0;
constexpr double kTickSpacing = 70.0;
constexpr double kCutWidth = 1.3;
constexpr double kRapidWidth = 0.8;
constexpr double kMarkSize = 7.0;
constexpr double kLeastTextSize = 6.0;
constexpr double kSamePoint = 0.05;
constexpr size_t kMostLegendRows = 4;
// The height of a capital letter in the size of its font.
constexpr double kCapitalHeight = 0.73;

struct Rectangle {
    double left, top, width, height;
};

class CScenePainter {
public:
    CScenePainter(cairo_t* cairo, const PathScene& scene, const PictureStyle& style)
        : cairo_(cairo), scene_(scene), style_(style), colors_(ColorsOn(style.dark)) {}

    void Paint() {
        SetColor(colors_.ground);
        cairo_paint(cairo_);
        cairo_select_font_face(cairo_, "sans-serif", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
        const double below_heading = PaintHeading();
        frame_ = {kAxisMargin, below_heading, style_.width - kAxisMargin - kMargin,
                  style_.height - below_heading - kMargin - 2.0 * kRow};
        if (frame_.width < 1.0 || frame_.height < 1.0) return;
        FitScene();
        PaintAxis(0);
        PaintAxis(1);
        PaintFrame();
        cairo_rectangle(cairo_, frame_.left, frame_.top, frame_.width, frame_.height);
        cairo_clip(cairo_);
        PaintStrokes(StrokeKind::kRapid);
        PaintStrokes(StrokeKind::kCut);
        PaintTexts();
        PaintMarks();
    }

private:
    void SetColor(SceneColor color) {
        cairo_set_source_rgb(cairo_, color.red / 255.0, color.green / 255.0, color.blue / 255.0);
    }

    // ---- Heading ----

    // Gives the y below it.
    double PaintHeading() {
        SetColor(colors_.text);
        cairo_set_font_size(cairo_, kTitleSize);
        cairo_move_to(cairo_, kMargin, kMargin + kTitleSize);
        cairo_show_text(cairo_, PrintableText(style_.title).c_str());
        cairo_set_font_size(cairo_, kFontSize);
        legend_at_ = {kMargin, kMargin + kTitleSize + kRow};
        legend_rows_ = 1;
        AddToLegend("rapid", StrokeKind::kRapid, 0);
        for (size_t i = 0; i < scene_.tools.size(); ++i) {
            if (!AddToLegend("tool " + std::to_string(scene_.tools[i]), StrokeKind::kCut, i)) break;
        }
        return legend_at_.y + kRow;
    }

    // False if the legend is full.
    bool AddToLegend(const std::string& text, StrokeKind kind, size_t tool) {
        cairo_text_extents_t extents;
        cairo_text_extents(cairo_, text.c_str(), &extents);
        const double width = kSwatch + 6.0 + extents.x_advance + 18.0;
        if (legend_at_.x + width > style_.width - kMargin && legend_at_.x > kMargin) {
            if (legend_rows_ == kMostLegendRows) return false;
            ++legend_rows_;
            legend_at_ = {kMargin, legend_at_.y + kRow};
        }
        UseStroke(kind, tool);
        cairo_move_to(cairo_, legend_at_.x, legend_at_.y - 4.0);
        cairo_line_to(cairo_, legend_at_.x + kSwatch, legend_at_.y - 4.0);
        cairo_stroke(cairo_);
        SetColor(colors_.text);
        cairo_move_to(cairo_, legend_at_.x + kSwatch + 6.0, legend_at_.y);
        cairo_show_text(cairo_, text.c_str());
        legend_at_.x += width;
        return true;
    }

    void UseStroke(StrokeKind kind, size_t tool) {
        const bool is_rapid = kind == StrokeKind::kRapid;
        constexpr double kDashes[] = {5.0, 4.0};
        cairo_set_dash(cairo_, kDashes, is_rapid ? 2 : 0, 0.0);
        cairo_set_line_width(cairo_, is_rapid ? kRapidWidth : kCutWidth * ToolWidth(tool));
        SetColor(is_rapid ? colors_.rapid : ToolColor(tool, style_.dark));
    }

    // ---- Axes ----

    void FitScene() {
        const SceneBox& bounds = scene_.bounds;
        const double width = std::max(frame_.width - 2.0 * kPadding, 1.0);
        const double height = std::max(frame_.height - 2.0 * kPadding, 1.0);
        scale_ = std::min(width / bounds.Width(), height / bounds.Height());
        if (!std::isfinite(scale_) || scale_ <= 0.0) scale_ = 1.0;
        const Point middle{bounds.low.x + bounds.Width() / 2.0, bounds.low.y + bounds.Height() / 2.0};
        origin_ = {frame_.left + frame_.width / 2.0 - middle.x * scale_,
                   frame_.top + frame_.height / 2.0 + middle.y * scale_};
    }

    Point OnPaper(Point p) const { return {origin_.x + p.x * scale_, origin_.y - p.y * scale_}; }

    void PaintAxis(int axis) {
        const double words = scene_.axes[axis].words_per_unit;
        const double at_start = (axis == 0 ? frame_.left - origin_.x : origin_.y - frame_.top - frame_.height) / scale_;
        const double at_end = at_start + (axis == 0 ? frame_.width : frame_.height) / scale_;
        const double low = std::min(at_start * words, at_end * words);
        const double high = std::max(at_start * words, at_end * words);
        for (const AxisTick& tick : TicksBetween(low, high, kTickSpacing / scale_ * std::fabs(words))) {
            const Point at = OnPaper({tick.value / words, tick.value / words});
            PaintTick(axis, axis == 0 ? at.x : at.y, tick.label);
        }
        SetColor(colors_.text);
        const std::string& unit = scene_.axes[axis].unit;
        const std::string name = (axis == 0 ? "axis 1" : "axis 2") + (unit.empty() ? std::string() : ", " + unit);
        if (axis == 0) {
            PaintLabel(name, frame_.left + frame_.width / 2.0, frame_.top + frame_.height + 2.0 * kRow, 0.5);
        } else {
            PaintUprightLabel(name);
        }
    }

    void PaintTick(int axis, double at, const std::string& label) {
        cairo_set_dash(cairo_, nullptr, 0, 0.0);
        cairo_set_line_width(cairo_, 1.0);
        SetColor(colors_.grid);
        cairo_move_to(cairo_, axis == 0 ? at : frame_.left, axis == 0 ? frame_.top : at);
        cairo_line_to(cairo_, axis == 0 ? at : frame_.left + frame_.width, axis == 0 ? frame_.top + frame_.height : at);
        cairo_stroke(cairo_);
        SetColor(colors_.text);
        if (axis == 0) {
            PaintLabel(label, at, frame_.top + frame_.height + kRow - 3.0, 0.5);
        } else {
            PaintLabel(label, frame_.left - 6.0, at + 4.0, 1.0);
        }
    }

    // `share` of the text lies to the left of `x`.
    void PaintLabel(const std::string& text, double x, double y, double share) {
        cairo_text_extents_t extents;
        cairo_text_extents(cairo_, text.c_str(), &extents);
        cairo_move_to(cairo_, x - share * extents.x_advance, y);
        cairo_show_text(cairo_, text.c_str());
    }

    void PaintUprightLabel(const std::string& text) {
        cairo_save(cairo_);
        cairo_translate(cairo_, kMargin, frame_.top + frame_.height / 2.0);
        cairo_rotate(cairo_, -kQuarterTurn);
        PaintLabel(text, 0.0, 0.0, 0.5);
        cairo_restore(cairo_);
    }

    void PaintFrame() {
        SetColor(colors_.rapid);
        cairo_set_line_width(cairo_, 1.0);
        cairo_rectangle(cairo_, frame_.left, frame_.top, frame_.width, frame_.height);
        cairo_stroke(cairo_);
    }

    // ---- Strokes ----

    // Strokes that meet and look the same are one line, so that dashes and corners go through.
    void PaintStrokes(StrokeKind kind) {
        const PathStroke* before = nullptr;
        for (const PathStroke& stroke : scene_.strokes) {
            if (stroke.kind != kind) {
                before = nullptr;
                cairo_stroke(cairo_);
                continue;
            }
            const bool same_look = before != nullptr && before->tool == stroke.tool;
            if (!same_look) cairo_stroke(cairo_);
            UseStroke(kind, static_cast<size_t>(stroke.tool));
            const bool goes_on = same_look && Distance(before->end, stroke.start) * scale_ < kSamePoint;
            AddToLine(stroke, goes_on);
            before = &stroke;
        }
        cairo_stroke(cairo_);
    }

    void AddToLine(const PathStroke& stroke, bool goes_on) {
        const Point start = OnPaper(stroke.start);
        const Point end = OnPaper(stroke.end);
        if (!goes_on) cairo_move_to(cairo_, start.x, start.y);
        if (stroke.is_arc()) {
            AddArc(stroke);
        } else {
            cairo_line_to(cairo_, end.x, end.y);
        }
    }

    // On paper, y goes down: counter-clockwise is the way of falling angles.
    void AddArc(const PathStroke& stroke) {
        const Point center = OnPaper(stroke.center);
        const double radius = std::hypot(stroke.start.x - stroke.center.x, stroke.start.y - stroke.center.y) * scale_;
        const double start = -std::atan2(stroke.start.y - stroke.center.y, stroke.start.x - stroke.center.x);
        if (stroke.sweep > 0.0) {
            cairo_arc_negative(cairo_, center.x, center.y, radius, start, start - stroke.sweep);
        } else {
            cairo_arc(cairo_, center.x, center.y, radius, start, start - stroke.sweep);
        }
    }

    void PaintTexts() {
        for (const PathStroke& stroke : scene_.strokes) {
            if (stroke.kind != StrokeKind::kText) continue;
            const SceneText& text = scene_.texts[static_cast<size_t>(stroke.text)];
            const Point at = OnPaper(stroke.start);
            UseStroke(StrokeKind::kText, static_cast<size_t>(stroke.tool));
            cairo_set_font_size(cairo_, std::max(text.height * scale_ / kCapitalHeight, kLeastTextSize));
            cairo_save(cairo_);
            cairo_translate(cairo_, at.x, at.y);
            cairo_rotate(cairo_, -text.rotation);
            cairo_move_to(cairo_, 0.0, 0.0);
            cairo_text_path(cairo_, PrintableText(text.text).c_str());
            cairo_restore(cairo_);
            cairo_stroke(cairo_);
        }
    }

    void PaintMarks() {
        for (const DirectionMark& mark : PlaceMarks(scene_, scale_, scene_.bounds)) {
            const PathStroke& stroke = scene_.strokes[mark.stroke];
            const bool is_rapid = stroke.kind == StrokeKind::kRapid;
            SetColor(is_rapid ? colors_.rapid : ToolColor(static_cast<size_t>(stroke.tool), style_.dark));
            const Point at = OnPaper(mark.at);
            const double size = is_rapid ? 0.8 * kMarkSize : kMarkSize;
            cairo_save(cairo_);
            cairo_translate(cairo_, at.x, at.y);
            cairo_rotate(cairo_, -mark.direction);
            cairo_move_to(cairo_, 0.6 * size, 0.0);
            cairo_line_to(cairo_, -0.6 * size, 0.45 * size);
            cairo_line_to(cairo_, -0.6 * size, -0.45 * size);
            cairo_close_path(cairo_);
            cairo_fill(cairo_);
            cairo_restore(cairo_);
        }
    }

    cairo_t* cairo_;
    const PathScene& scene_;
    const PictureStyle& style_;
    const SceneColors& colors_;
    Point legend_at_;
    size_t legend_rows_ = 0;
    Rectangle frame_{};
    double scale_ = 1.0;  // pixels for a unit of the scene
    Point origin_;        // of the scene, on paper
};

using Surface = std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)>;

cairo_status_t Append(void* target, const unsigned char* bytes, unsigned int count) {
    static_cast<std::string*>(target)->append(reinterpret_cast<const char*>(bytes), count);
    return CAIRO_STATUS_SUCCESS;
}

bool PaintOn(cairo_surface_t* surface, const PathScene& scene, const PictureStyle& style) {
    cairo_t* const cairo = cairo_create(surface);
    CScenePainter(cairo, scene, style).Paint();
    const bool is_good = cairo_status(cairo) == CAIRO_STATUS_SUCCESS;
    cairo_destroy(cairo);
    return is_good;
}

}  // namespace

std::string SvgPicture(const PathScene& scene, const PictureStyle& style) {
    std::string picture;
    const Surface surface(cairo_svg_surface_create_for_stream(Append, &picture, style.width, style.height),
                          cairo_surface_destroy);
    cairo_svg_surface_set_document_unit(surface.get(), CAIRO_SVG_UNIT_PX);
    const bool is_good = PaintOn(surface.get(), scene, style);
    cairo_surface_finish(surface.get());
    return is_good && cairo_surface_status(surface.get()) == CAIRO_STATUS_SUCCESS ? picture : std::string();
}

std::string PngPicture(const PathScene& scene, const PictureStyle& style) {
    std::string picture;
    const Surface surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, style.width, style.height),
                          cairo_surface_destroy);
    if (!PaintOn(surface.get(), scene, style)) return {};
    if (cairo_surface_write_to_png_stream(surface.get(), Append, &picture) != CAIRO_STATUS_SUCCESS) return {};
    return picture;
}

}  // namespace brindle::host
