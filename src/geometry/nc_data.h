// The records of a program: lines, arcs, texts, calls of sub-programs, and the record that stands for none.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>

#include "geometry/plane_math.h"
#include "geometry/trans.h"

namespace brindle {

// A record with a neutral answer (0, false, empty) to every question, so that callers ask without testing what it is.
// Coordinates and lengths are millimetres in the host's plane until Transform, and machine units after it.
class CNCData {
public:
    virtual ~CNCData() = default;
    virtual std::unique_ptr<CNCData> Clone() const = 0;
    // Carries the record into machine coordinates, in place.
    virtual void Transform(const CTrans&) {}

    virtual bool IsLine() const { return false; }
    virtual bool IsArc() const { return false; }
    virtual bool IsText() const { return false; }
    virtual bool IsInclude() const { return false; }

    virtual double GetStartX() const { return 0.0; }
    virtual double GetStartY() const { return 0.0; }
    virtual double GetEndX() const { return 0.0; }
    virtual double GetEndY() const { return 0.0; }
    virtual double GetCenterX() const { return 0.0; }
    virtual double GetCenterY() const { return 0.0; }
    virtual double GetCutWidth() const { return 0.0; }
    virtual int32_t GetLineType() const { return 0; }
    virtual bool IsClockwise() const { return false; }
    virtual bool IsMinorArc() const { return false; }  // a sweep of at most 180 degrees
    virtual int32_t GetToolId() const { return 0; }
    virtual int32_t GetBridgeCount() const { return 0; }
    virtual double GetBridgeWidth() const { return 0.0; }
    virtual double GetDeltaX() const { return 0.0; }
    virtual double GetDeltaY() const { return 0.0; }
    virtual double GetRadius() const { return 0.0; }  // above 0 clockwise, below 0 counter-clockwise
    virtual double GetStartAngle(bool /*in_degrees*/) const { return 0.0; }
    virtual double GetEndAngle(bool /*in_degrees*/) const { return 0.0; }
    virtual double GetSweepAngle(bool /*in_degrees*/) const { return 0.0; }  // never negative
    virtual double GetTextHeight() const { return 0.0; }
    virtual double GetTextRotation() const { return 0.0; }
    virtual double GetTextSecondLength() const { return 0.0; }
    virtual double GetTextExtraValue() const { return 0.0; }
    virtual double GetTextFirstLength() const { return 0.0; }
    virtual const std::string& GetTextString() const;
    virtual const std::string& GetIncludeName() const;
    virtual double GetIncludeRotation() const { return 0.0; }  // radians
    virtual bool GetIncludeMirrorX() const { return false; }
    virtual bool GetIncludeMirrorY() const { return false; }

    Point Start() const { return {GetStartX(), GetStartY()}; }
    Point End() const { return {GetEndX(), GetEndY()}; }
    Point Center() const { return {GetCenterX(), GetCenterY()}; }
};

// No record.
class CNCNullData final : public CNCData {
public:
    std::unique_ptr<CNCData> Clone() const override { return std::make_unique<CNCNullData>(*this); }
};

// What a line and an arc have in common.
struct CutAttributes {
    int32_t line_type = 0;
    int32_t tool_id = 0;  // 1-based number of a tool of the tuning
    double cut_width = 0.0;
    int32_t bridge_count = 0;
    double bridge_width = 0.0;

    // Carries the two widths along.
    void Transform(const CTrans& trans);
};

class CNCLineData final : public CNCData {
public:
    CNCLineData(const CutAttributes& cut, Point start, Point end) : cut_(cut), start_(start), end_(end) {}
    std::unique_ptr<CNCData> Clone() const override { return std::make_unique<CNCLineData>(*this); }
    void Transform(const CTrans& trans) override;

    bool IsLine() const override { return true; }
    double GetStartX() const override { return start_.x; }
    double GetStartY() const override { return start_.y; }
    double GetEndX() const override { return end_.x; }
    double GetEndY() const override { return end_.y; }
    double GetCutWidth() const override { return cut_.cut_width; }
    int32_t GetLineType() const override { return cut_.line_type; }
    int32_t GetToolId() const override { return cut_.tool_id; }
    int32_t GetBridgeCount() const override { return cut_.bridge_count; }
    double GetBridgeWidth() const override { return cut_.bridge_width; }
    double GetDeltaX() const override { return end_.x - start_.x; }
    double GetDeltaY() const override { return end_.y - start_.y; }
    double GetStartAngle(bool in_degrees) const override;
    double GetEndAngle(bool in_degrees) const override { return GetStartAngle(in_degrees); }

    const CutAttributes& cut() const { return cut_; }
    // The facets of a closed arc meet: the first takes the last one's end as its start.
    void set_start(Point start) { start_ = start; }

private:
    CutAttributes cut_;
    Point start_;
    Point end_;
};

class CNCArcData final : public CNCData {
public:
    // A closed circle has its start equal to its end. `radius` is signed; the true end starts as the end.
    CNCArcData(const CutAttributes& cut, Point start, Point end, Point center, double radius);
    // A clone has its ratios back at 1 and its true end at its end.
    CNCArcData(const CNCArcData& other);
    CNCArcData& operator=(const CNCArcData& other);
    std::unique_ptr<CNCData> Clone() const override { return std::make_unique<CNCArcData>(*this); }
    // Rounds the end points and looks for the centre on the number grid that keeps the arc true (arc_transform.cpp).
    // A factor of 0 leaves the arc alone.
    void Transform(const CTrans& trans) override;

    bool IsArc() const override { return true; }
    double GetStartX() const override { return start_.x; }
    double GetStartY() const override { return start_.y; }
    double GetEndX() const override { return end_.x; }
    double GetEndY() const override { return end_.y; }
    double GetCenterX() const override { return center_.x; }
    double GetCenterY() const override { return center_.y; }
    double GetCutWidth() const override { return cut_.cut_width; }
    int32_t GetLineType() const override { return cut_.line_type; }
    bool IsClockwise() const override { return radius_ > 0.0; }
    bool IsMinorArc() const override;
    int32_t GetToolId() const override { return cut_.tool_id; }
    int32_t GetBridgeCount() const override { return cut_.bridge_count; }
    double GetBridgeWidth() const override { return cut_.bridge_width; }
    double GetDeltaX() const override { return end_.x - start_.x; }
    double GetDeltaY() const override { return end_.y - start_.y; }
    double GetRadius() const override { return radius_; }
    double GetStartAngle(bool in_degrees) const override;  // tangent at the start
    double GetEndAngle(bool in_degrees) const override;    // tangent at the end
    double GetSweepAngle(bool in_degrees) const override;

    bool IsFullCircle() const;
    bool IsLongArc() const;
    const CutAttributes& cut() const { return cut_; }
    // The end as it would be without the snap of a long arc's end to its circle; what the machine reaches.
    Point true_end() const { return true_end_; }
    // Factors that make the two machine axes comparable.
    double x_ratio() const { return x_ratio_; }
    double y_ratio() const { return y_ratio_; }

private:
    void TransformLongArc(const CTrans& trans);
    void TransformShortArc(const CTrans& trans);
    double TangentAt(Point p, bool in_degrees) const;

    CutAttributes cut_;
    Point start_;
    Point end_;
    Point center_;
    Point true_end_;
    double radius_;
    double x_ratio_ = 1.0;
    double y_ratio_ = 1.0;
};

class CNCTextData final : public CNCData {
public:
    // The two extra lengths and the extra value are carried along; no output reads them.
    struct Fields {
        int32_t tool_id = 0;
        int32_t line_type = 0;
        double height = 0.0;
        Point start;
        Point end;
        double first_length = 0.0;
        double rotation = 0.0;  // radians
        double extra_value = 0.0;
        double second_length = 0.0;
        std::string text;
    };
    explicit CNCTextData(Fields fields) : fields_(std::move(fields)) {}
    std::unique_ptr<CNCData> Clone() const override { return std::make_unique<CNCTextData>(*this); }
    void Transform(const CTrans& trans) override;

    bool IsText() const override { return true; }
    double GetStartX() const override { return fields_.start.x; }
    double GetStartY() const override { return fields_.start.y; }
    double GetEndX() const override { return fields_.end.x; }
    double GetEndY() const override { return fields_.end.y; }
    int32_t GetLineType() const override { return fields_.line_type; }
    int32_t GetToolId() const override { return fields_.tool_id; }
    double GetDeltaX() const override { return fields_.end.x - fields_.start.x; }
    double GetDeltaY() const override { return fields_.end.y - fields_.start.y; }
    double GetTextHeight() const override { return fields_.height; }
    double GetTextRotation() const override { return fields_.rotation; }
    double GetTextSecondLength() const override { return fields_.second_length; }
    double GetTextExtraValue() const override { return fields_.extra_value; }
    double GetTextFirstLength() const override { return fields_.first_length; }
    const std::string& GetTextString() const override { return fields_.text; }

private:
    Fields fields_;
};

class CNCIncludeData final : public CNCData {
public:
    struct Fields {
        std::string name;       // the sub-program's
        Point place;            // placing point
        Point center;           // the placed sub-program's centre
        double rotation = 0.0;  // radians
        bool mirror_x = false;
        bool mirror_y = false;
    };
    explicit CNCIncludeData(Fields fields) : fields_(std::move(fields)) {}
    std::unique_ptr<CNCData> Clone() const override { return std::make_unique<CNCIncludeData>(*this); }
    void Transform(const CTrans& trans) override;

    bool IsInclude() const override { return true; }
    double GetStartX() const override { return fields_.place.x; }
    double GetStartY() const override { return fields_.place.y; }
    double GetCenterX() const override { return fields_.center.x; }
    double GetCenterY() const override { return fields_.center.y; }
    double GetDeltaX() const override { return 2.0 * fields_.center.x; }
    double GetDeltaY() const override { return 2.0 * fields_.center.y; }
    const std::string& GetIncludeName() const override { return fields_.name; }
    double GetIncludeRotation() const override { return fields_.rotation; }
    bool GetIncludeMirrorX() const override { return fields_.mirror_x; }
    bool GetIncludeMirrorY() const override { return fields_.mirror_y; }

    // An equivalent placing: a half turn is the same as both mirrors.
    void SetPlacing(double rotation, bool mirror_x, bool mirror_y);

private:
    Fields fields_;
};

}  // namespace brindle
