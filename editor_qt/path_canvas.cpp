#include "path_canvas.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "qt_text.h"
#include "scene/scene_colors.h"
#include "stroke_lines.h"

namespace brindle {
namespace {

// Pixels.
constexpr double kPadding = 20.0;
constexpr double kPickDistance = 8.0;
constexpr double kArrowStep = 60.0;
constexpr double kMarkSize = 7.0;
constexpr double kLeastTextSize = 6.0;
constexpr double kScaleBar = 120.0;  // at most
constexpr int kLegendRow = 18;
constexpr int kSwatch = 22;

constexpr double kZoomStep = 1.25;
constexpr double kLargestZoom = 1e6;  // beyond the view of all
// A picture is painted in batches of strokes, as many at a time as leave the user free to go on.
constexpr size_t kBatch = 10000;
constexpr qint64 kPaintTime = 50;          // milliseconds
constexpr size_t kMostSmoothLines = 5000;  // of a batch
constexpr size_t kMostLegendTools = 12;

QColor QtColor(SceneColor color) { return {color.red, color.green, color.blue}; }

QPen CutPen(size_t tool, bool dark) { return {QtColor(ToolColor(tool, dark)), 1.3 * ToolWidth(tool)}; }

QPen RapidPen(bool dark) {
    QPen pen(QtColor(ColorsOn(dark).rapid), 0.0);
    pen.setDashPattern({5.0, 4.0});
    return pen;
}

// The greatest of 1, 2 and 5 times a power of ten that is no more than `most`, which is above 0.
double RoundBelow(double most) {
    double power = 1.0;
    while (power > most) power /= 10.0;
    while (10.0 * power <= most) power *= 10.0;
    return most >= 5.0 * power ? 5.0 * power : most >= 2.0 * power ? 2.0 * power : power;
}

}  // namespace

CPathCanvas::CPathCanvas(QWidget* parent) : QWidget(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void CPathCanvas::SetScene(std::shared_ptr<const PathScene> scene) {
    scene_ = std::move(scene);
    highlighted_.clear();
    picked_ = -1;
    ShowAll();
}

void CPathCanvas::Highlight(int element) {
    highlighted_.clear();
    if (scene_ == nullptr || element < 0) return update();
    for (size_t i = 0; i < scene_->strokes.size(); ++i) {
        if (scene_->strokes[i].element == element) highlighted_.push_back(i);
    }
    BringIntoView(BoundsOf(*scene_, element));
    update();
}

bool CPathCanvas::IsDark() const { return palette().color(QPalette::Base).lightness() < 128; }

// ---- View ----

void CPathCanvas::ShowAll() {
    shows_all_ = true;
    scale_ = 1.0;
    center_ = {};
    if (scene_ != nullptr && !scene_->bounds.is_empty) {
        const SceneBox& bounds = scene_->bounds;
        center_ = {(bounds.low.x + bounds.high.x) / 2.0, (bounds.low.y + bounds.high.y) / 2.0};
        scale_ = std::min(std::max(width() - 2.0 * kPadding, 1.0) / bounds.Width(),
                          std::max(height() - 2.0 * kPadding, 1.0) / bounds.Height());
        if (!std::isfinite(scale_) || scale_ <= 0.0) scale_ = 1.0;
    }
    ViewChanged();
}

void CPathCanvas::ViewChanged() {
    picture_ = {};
    update();
}

void CPathCanvas::ZoomAbout(QPointF pixel, double factor) {
    if (scene_ == nullptr || scene_->bounds.is_empty) return;
    const double size = std::max({scene_->bounds.Width(), scene_->bounds.Height(), 1e-6});
    const double least = 10.0 / size;
    const double scale = std::clamp(scale_ * factor, least, least * kLargestZoom);
    const Point fixed = ToScene(pixel);
    scale_ = scale;
    const Point moved = ToScene(pixel);
    center_ = {center_.x + fixed.x - moved.x, center_.y + fixed.y - moved.y};
    shows_all_ = false;
    ViewChanged();
}

void CPathCanvas::MoveBy(QPointF pixels) {
    center_ = {center_.x - pixels.x() / scale_, center_.y + pixels.y() / scale_};
    shows_all_ = false;
    ViewChanged();
}

void CPathCanvas::BringIntoView(const SceneBox& box) {
    if (box.is_empty) return;
    const SceneBox view = InSight();
    const auto is_in = [&view](Point p) {
        return p.x >= view.low.x && p.x <= view.high.x && p.y >= view.low.y && p.y <= view.high.y;
    };
    if (is_in(box.low) && is_in(box.high)) return;
    const bool fits = box.Width() <= view.Width() && box.Height() <= view.Height();
    if (!fits && box.Meets(view)) return;
    center_ = {(box.low.x + box.high.x) / 2.0, (box.low.y + box.high.y) / 2.0};
    shows_all_ = false;
    ViewChanged();
}

QPointF CPathCanvas::ToPixel(Point p) const {
    return {width() / 2.0 + (p.x - center_.x) * scale_, height() / 2.0 - (p.y - center_.y) * scale_};
}

Point CPathCanvas::ToScene(QPointF pixel) const {
    return {center_.x + (pixel.x() - width() / 2.0) / scale_, center_.y - (pixel.y() - height() / 2.0) / scale_};
}

SceneBox CPathCanvas::InSight() const {
    SceneBox box;
    box.Add(ToScene({0.0, 0.0}));
    box.Add(ToScene({static_cast<double>(width()), static_cast<double>(height())}));
    return box;
}

QRectF CPathCanvas::Sheet() const { return QRectF(rect()).adjusted(-10.0, -10.0, 10.0, 10.0); }

// ---- The user ----

void CPathCanvas::PickAt(QPointF pixel) {
    if (scene_ == nullptr) return;
    const int element = FindElement(*scene_, ToScene(pixel), kPickDistance / scale_);
    if (element < 0) return;
    picked_ = element;
    Highlight(element);
    if (on_picked) on_picked();
}

void CPathCanvas::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (shows_all_) return ShowAll();
    ViewChanged();
}

void CPathCanvas::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) ViewChanged();
}

void CPathCanvas::wheelEvent(QWheelEvent* event) {
    ZoomAbout(event->position(), std::pow(kZoomStep, event->angleDelta().y() / 120.0));
    event->accept();
}

void CPathCanvas::mousePressEvent(QMouseEvent* event) {
    pressed_at_ = event->position();
    is_dragging_ = false;
}

void CPathCanvas::mouseMoveEvent(QMouseEvent* event) {
    if ((event->buttons() & (Qt::LeftButton | Qt::MiddleButton)) == 0) return;
    const QPointF moved = event->position() - pressed_at_;
    if (!is_dragging_ && moved.manhattanLength() < QApplication::startDragDistance()) return;
    is_dragging_ = true;
    setCursor(Qt::ClosedHandCursor);
    pressed_at_ = event->position();
    MoveBy(moved);
}

void CPathCanvas::mouseReleaseEvent(QMouseEvent* event) {
    unsetCursor();
    if (!is_dragging_ && event->button() == Qt::LeftButton) PickAt(event->position());
    is_dragging_ = false;
}

void CPathCanvas::mouseDoubleClickEvent(QMouseEvent* /*event*/) {
    is_dragging_ = true;  // the release that follows picks nothing
    ShowAll();
}

void CPathCanvas::keyPressEvent(QKeyEvent* event) {
    const QPointF middle(width() / 2.0, height() / 2.0);
    switch (event->key()) {
        case Qt::Key_Plus:
        case Qt::Key_Equal: return ZoomAbout(middle, kZoomStep);
        case Qt::Key_Minus: return ZoomAbout(middle, 1.0 / kZoomStep);
        case Qt::Key_Left: return MoveBy({kArrowStep, 0.0});
        case Qt::Key_Right: return MoveBy({-kArrowStep, 0.0});
        case Qt::Key_Up: return MoveBy({0.0, kArrowStep});
        case Qt::Key_Down: return MoveBy({0.0, -kArrowStep});
        case Qt::Key_Home: return ShowAll();
        default: QWidget::keyPressEvent(event);
    }
}

// ---- Painting ----

void CPathCanvas::paintEvent(QPaintEvent* /*event*/) {
    if (picture_.isNull()) StartPicture();
    if (scene_ != nullptr && pass_ != Pass::kDone) PaintMore();
    QPainter painter(this);
    painter.drawPixmap(0, 0, picture_);
    if (scene_ != nullptr) {
        PaintLegend(painter);
        PaintScaleBar(painter);
        PaintHighlight(painter);
        if (pass_ != Pass::kDone) update();
    }
    if (!hasFocus()) return;
    painter.setPen(palette().color(QPalette::Highlight));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void CPathCanvas::StartPicture() {
    picture_ = QPixmap(size() * devicePixelRatioF());
    picture_.setDevicePixelRatio(devicePixelRatioF());
    picture_.fill(palette().color(QPalette::Base));
    pass_ = Pass::kRapids;
    next_stroke_ = 0;
}

void CPathCanvas::PaintMore() {
    QElapsedTimer timer;
    timer.start();
    QPainter painter(&picture_);
    while (pass_ != Pass::kDone && timer.elapsed() < kPaintTime) {
        const size_t end = std::min(next_stroke_ + kBatch, scene_->strokes.size());
        PaintLines(painter, pass_ == Pass::kRapids ? StrokeKind::kRapid : StrokeKind::kCut, next_stroke_, end);
        next_stroke_ = end;
        if (end < scene_->strokes.size()) continue;
        next_stroke_ = 0;
        pass_ = pass_ == Pass::kRapids ? Pass::kCuts : Pass::kDone;
    }
    if (pass_ != Pass::kDone) return;
    painter.setRenderHint(QPainter::Antialiasing);
    PaintTexts(painter);
    PaintMarks(painter);
}

void CPathCanvas::PaintLines(QPainter& painter, StrokeKind kind, size_t begin, size_t end) const {
    const SceneBox view = InSight();
    const auto to_pixel = [this](Point p) { return ToPixel(p); };
    std::vector<CStrokeLines> by_tool(std::max(scene_->tools.size(), size_t{1}),
                                      CStrokeLines(to_pixel, scale_, Sheet()));
    for (size_t i = begin; i < end; ++i) {
        const PathStroke& stroke = scene_->strokes[i];
        if (stroke.kind != kind || !RoughBounds(stroke).Meets(view)) continue;
        by_tool[static_cast<size_t>(stroke.tool)].Add(stroke);
    }
    for (size_t tool = 0; tool < by_tool.size(); ++tool) {
        const QVector<QLineF> lines = by_tool[tool].Take();
        const bool is_smooth = static_cast<size_t>(lines.size()) <= kMostSmoothLines;
        QPen pen = kind == StrokeKind::kRapid ? RapidPen(IsDark()) : CutPen(tool, IsDark());
        if (!is_smooth) pen.setWidth(0);
        painter.setRenderHint(QPainter::Antialiasing, is_smooth);
        painter.setPen(pen);
        painter.drawLines(lines);
    }
}

void CPathCanvas::PaintTexts(QPainter& painter) const {
    const SceneBox view = InSight();
    for (const PathStroke& stroke : scene_->strokes) {
        if (stroke.kind != StrokeKind::kText || !RoughBounds(stroke).Meets(view)) continue;
        const SceneText& text = scene_->texts[static_cast<size_t>(stroke.text)];
        QFont letters = font();
        // A font is somewhat larger than its capital letters.
        letters.setPixelSize(static_cast<int>(std::clamp(text.height * scale_ / 0.73, kLeastTextSize, 4000.0)));
        painter.save();
        painter.setFont(letters);
        painter.setPen(ColorOf(stroke));
        painter.translate(ToPixel(stroke.start));
        painter.rotate(-text.rotation / kRadiansPerDegree);
        painter.drawText(QPointF(0.0, 0.0), ToQt(text.text));
        painter.restore();
    }
}

void CPathCanvas::PaintMarks(QPainter& painter) const {
    painter.setPen(Qt::NoPen);
    for (const DirectionMark& mark : PlaceMarks(*scene_, scale_, InSight())) {
        const PathStroke& stroke = scene_->strokes[mark.stroke];
        const double size = stroke.kind == StrokeKind::kRapid ? 0.8 * kMarkSize : kMarkSize;
        painter.save();
        painter.translate(ToPixel(mark.at));
        painter.rotate(-mark.direction / kRadiansPerDegree);
        painter.setBrush(ColorOf(stroke));
        const QPointF corners[] = {{0.6 * size, 0.0}, {-0.6 * size, 0.45 * size}, {-0.6 * size, -0.45 * size}};
        painter.drawPolygon(corners, 3);
        painter.restore();
    }
}

void CPathCanvas::PaintLegend(QPainter& painter) const {
    const size_t count = std::min(scene_->tools.size(), kMostLegendTools);
    for (size_t i = 0; i < count; ++i) {
        const int y = kLegendRow * (static_cast<int>(i) + 1);
        painter.setPen(CutPen(i, IsDark()));
        painter.drawLine(8, y - 4, 8 + kSwatch, y - 4);
        painter.setPen(palette().color(QPalette::Text));
        painter.drawText(8 + kSwatch + 6, y, QStringLiteral("tool %1").arg(scene_->tools[i]));
    }
}

void CPathCanvas::PaintScaleBar(QPainter& painter) const {
    const SceneAxis& axis = scene_->axes[0];
    const double most = kScaleBar / scale_ * std::fabs(axis.words_per_unit);
    if (!std::isnormal(most)) return;
    const double words = RoundBelow(most);
    const double length = words / std::fabs(axis.words_per_unit) * scale_;
    const double y = height() - 10.0;
    painter.setPen(palette().color(QPalette::Text));
    painter.drawLine(QPointF(8.0, y), QPointF(8.0 + length, y));
    painter.drawLine(QPointF(8.0, y - 4.0), QPointF(8.0, y));
    painter.drawLine(QPointF(8.0 + length, y - 4.0), QPointF(8.0 + length, y));
    painter.drawText(QPointF(14.0 + length, y), QString::number(words, 'g', 6) + ' ' + ToQt(axis.unit));
}

void CPathCanvas::PaintHighlight(QPainter& painter) const {
    if (highlighted_.empty()) return;
    const SceneBox view = InSight();
    CStrokeLines marked([this](Point p) { return ToPixel(p); }, scale_, Sheet());
    for (const size_t index : highlighted_) {
        const PathStroke& stroke = scene_->strokes[index];
        if (RoughBounds(stroke).Meets(view)) marked.Add(stroke);
    }
    QColor color = QtColor(ColorsOn(IsDark()).highlight);
    color.setAlpha(150);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, 9.0, Qt::SolidLine, Qt::RoundCap));
    painter.drawLines(marked.Take());
}

QColor CPathCanvas::ColorOf(const PathStroke& stroke) const {
    if (stroke.kind == StrokeKind::kRapid) return QtColor(ColorsOn(IsDark()).rapid);
    return QtColor(ToolColor(static_cast<size_t>(stroke.tool), IsDark()));
}

}  // namespace brindle
