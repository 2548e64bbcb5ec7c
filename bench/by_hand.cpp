#include "by_hand.h"

#include <charconv>
#include <cmath>
#include <cstdio>

#include "jobs.h"

namespace brindle::bench {
namespace {

// Blocks by snprintf, one call each.
class CPrintfWriter {
public:
    explicit CPrintfWriter(std::string& out) : out_(out) {}

    void Move(Point p) { Print("N%d G0 X%.3f Y%.3f \r\n", Next(), p.x, p.y); }
    void FirstLine(Point p, int speed) { Print("N%d G1 X%.3f Y%.3f F%d \r\n", Next(), p.x, p.y, speed); }
    void Line(Point p) { Print("N%d X%.3f Y%.3f \r\n", Next(), p.x, p.y); }
    void LineAfterArc(Point p) { Print("N%d G1 X%.3f Y%.3f \r\n", Next(), p.x, p.y); }
    void LineAtSpeed(Point p, int speed) { Print("N%d X%.3f Y%.3f F%d \r\n", Next(), p.x, p.y, speed); }
    void Arc(Point p, Point c) { Print("N%d G2 X%.3f Y%.3f I%.3f J%.3f \r\n", Next(), p.x, p.y, c.x, c.y); }
    void FirstTurned(Point p, double c) { Print("N%d G1 X%.3f Y%.3f C%.3f F1200 \r\n", Next(), p.x, p.y, c); }
    void Turned(Point p, double c) { Print("N%d X%.3f Y%.3f C%.3f \r\n", Next(), p.x, p.y, c); }

private:
    int Next() { return number_ += 10; }
    template <typename... Values>
    void Print(const char* format, Values... values) {
        char block[160];
        const int length = std::snprintf(block, sizeof block, format, values...);
        out_.append(block, static_cast<size_t>(length));
    }

    std::string& out_;
    int number_ = 0;
};

// The same blocks by std::to_chars, number by number.
class CToCharsWriter {
public:
    explicit CToCharsWriter(std::string& out) : out_(out) {}

    void Move(Point p) { Begin().Code("G0 ").Words('X', 'Y', p).End(); }
    void FirstLine(Point p, int speed) { Begin().Code("G1 ").Words('X', 'Y', p).Speed(speed).End(); }
    void Line(Point p) { Begin().Words('X', 'Y', p).End(); }
    void LineAfterArc(Point p) { Begin().Code("G1 ").Words('X', 'Y', p).End(); }
    void LineAtSpeed(Point p, int speed) { Begin().Words('X', 'Y', p).Speed(speed).End(); }
    void Arc(Point p, Point c) { Begin().Code("G2 ").Words('X', 'Y', p).Words('I', 'J', c).End(); }
    void FirstTurned(Point p, double c) { Begin().Code("G1 ").Words('X', 'Y', p).Word('C', c).Speed(1200).End(); }
    void Turned(Point p, double c) { Begin().Words('X', 'Y', p).Word('C', c).End(); }

private:
    CToCharsWriter& Begin() {
        at_ = block_;
        *at_++ = 'N';
        at_ = std::to_chars(at_, block_ + sizeof block_, number_ += 10).ptr;
        *at_++ = ' ';
        return *this;
    }
    CToCharsWriter& Code(const char* code) {
        while (*code != '\0') *at_++ = *code++;
        return *this;
    }
    CToCharsWriter& Word(char address, double value) {
        *at_++ = address;
        at_ = std::to_chars(at_, block_ + sizeof block_, value, std::chars_format::fixed, 3).ptr;
        *at_++ = ' ';
        return *this;
    }
    CToCharsWriter& Words(char a, char b, Point p) { return Word(a, p.x).Word(b, p.y); }
    CToCharsWriter& Speed(int speed) {
        *at_++ = 'F';
        at_ = std::to_chars(at_, block_ + sizeof block_, speed).ptr;
        *at_++ = ' ';
        return *this;
    }
    void End() {
        *at_++ = '\r';
        *at_++ = '\n';
        out_.append(block_, at_);
    }

    std::string& out_;
    char block_[160];
    char* at_ = block_;
    int number_ = 0;
};

template <typename Body>
std::string Write(Writer writer, Body body) {
    std::string out;
    if (writer == Writer::kPrintf) {
        CPrintfWriter blocks(out);
        body(blocks);
    } else {
        CToCharsWriter blocks(out);
        body(blocks);
    }
    return out;
}

Point Minus(Point a, Point b) { return {a.x - b.x, a.y - b.y}; }

double Degrees(Point from, Point to) {
    const double angle = std::atan2(to.y - from.y, to.x - from.x) / kRadiansPerDegree;
    return angle < 0.0 ? angle + 360.0 : angle;
}

}  // namespace

std::string LinesByHand(int64_t records, Writer writer) {
    return Write(writer, [=](auto& blocks) {
        blocks.Move(PathPoint(0));
        blocks.FirstLine(PathPoint(1), 1200);
        for (int64_t i = 2; i <= records; ++i) blocks.Line(PathPoint(i));
    });
}

std::string ArcsByHand(int64_t records, Writer writer) {
    return Write(writer, [=](auto& blocks) {
        blocks.Move(PathPoint(0));
        blocks.FirstLine(PathPoint(1), 1200);
        for (int64_t i = 1; i < records; ++i) {
            const Point start = PathPoint(i);
            const Point end = PathPoint(i + 1);
            if (i % 3 == 2) {
                blocks.Arc(end, Minus({(start.x + end.x) / 2.0, (start.y + end.y) / 2.0}, start));
            } else if (i % 3 == 0) {
                blocks.LineAfterArc(end);
            } else {
                blocks.Line(end);
            }
        }
    });
}

std::string TangentialByHand(int64_t records, Writer writer) {
    return Write(writer, [=](auto& blocks) {
        blocks.Move(PathPoint(0));
        blocks.FirstTurned(PathPoint(1), Degrees(PathPoint(0), PathPoint(1)));
        for (int64_t i = 1; i < records; ++i) blocks.Turned(PathPoint(i + 1), Degrees(PathPoint(i), PathPoint(i + 1)));
    });
}

std::string CallsByHand(int64_t records, Writer writer) {
    return Write(writer, [=](auto& blocks) {
        for (int64_t call = 0; call < kCallCount; ++call) {
            const CNCIncludeData::Fields placing = CallOf(call);
            const double cosine = std::cos(placing.rotation);
            const double sine = std::sin(placing.rotation);
            const auto placed = [&](int64_t i) {
                const Point p = PathPoint(i);
                return Point{p.x * cosine - p.y * sine + placing.place.x, p.x * sine + p.y * cosine + placing.place.y};
            };
            if (call == 0) {
                blocks.Move(placed(0));
                blocks.FirstLine(placed(1), 1200);
            } else {
                blocks.Move(placed(0));
                blocks.LineAfterArc(placed(1));
            }
            for (int64_t i = 2; i <= records / kCallCount; ++i) blocks.Line(placed(i));
        }
    });
}

std::string ToolsByHand(int64_t records, Writer writer) {
    return Write(writer, [=](auto& blocks) {
        blocks.Move(PathPoint(0));
        blocks.FirstLine(PathPoint(1), 1000 + ToolOf(0));
        for (int64_t i = 1; i < records; ++i) {
            if (ToolOf(i) == ToolOf(i - 1)) {
                blocks.Line(PathPoint(i + 1));
            } else {
                blocks.LineAtSpeed(PathPoint(i + 1), 1000 + ToolOf(i));
            }
        }
    });
}

}  // namespace brindle::bench
