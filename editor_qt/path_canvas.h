// The widget that draws a tool path: the drawing next to the NC code of the preview.
#pragma once

#include <QPixmap>
#include <QWidget>
#include <functional>
#include <memory>
#include <vector>

#include "scene/path_scene.h"

namespace brindle {

// Rapid moves are dashed, cuts have the colours of their tools, arrowheads show the direction.
//
// The wheel and the keys + and - zoom, dragging and the arrow keys move, a double click and Home show all. A click
// picks the element that lies nearest. What is in sight is painted once for each view and kept as a picture; that of a
// large path comes bit by bit.
class CPathCanvas : public QWidget {
public:
    explicit CPathCanvas(QWidget* parent = nullptr);

    // Null for an empty drawing. Shows all of it, with nothing marked or picked.
    void SetScene(std::shared_ptr<const PathScene> scene);
    // Marks all strokes of an element and brings them into view; -1 for none.
    void Highlight(int element);
    // The element that was picked last, -1 for none.
    int GetPicked() const { return picked_; }

    std::function<void()> on_picked;

    QSize sizeHint() const override { return {480, 400}; }
    QSize minimumSizeHint() const override { return {160, 120}; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    enum class Pass : uint8_t { kRapids, kCuts, kDone };

    bool IsDark() const;
    void ShowAll();
    void ZoomAbout(QPointF pixel, double factor);
    void MoveBy(QPointF pixels);
    void ViewChanged();
    void BringIntoView(const SceneBox& box);
    void PickAt(QPointF pixel);

    QPointF ToPixel(Point p) const;
    Point ToScene(QPointF pixel) const;
    SceneBox InSight() const;
    // The widget with a margin for thick lines.
    QRectF Sheet() const;

    void StartPicture();
    // Goes on with the picture for a while.
    void PaintMore();
    void PaintLines(QPainter& painter, StrokeKind kind, size_t begin, size_t end) const;
    void PaintTexts(QPainter& painter) const;
    void PaintMarks(QPainter& painter) const;
    void PaintLegend(QPainter& painter) const;
    void PaintScaleBar(QPainter& painter) const;
    void PaintHighlight(QPainter& painter) const;
    QColor ColorOf(const PathStroke& stroke) const;

    std::shared_ptr<const PathScene> scene_;
    double scale_ = 1.0;       // pixels for a unit of the scene
    Point center_;             // of the scene, in the middle of the widget
    bool shows_all_ = true;    // the view follows the size of the widget
    QPixmap picture_;          // of the view; null if it has changed
    Pass pass_ = Pass::kDone;  // of the picture
    size_t next_stroke_ = 0;
    std::vector<size_t> highlighted_;  // indexes of strokes
    int picked_ = -1;
    QPointF pressed_at_;
    bool is_dragging_ = false;
};

}  // namespace brindle
