#include "form_layout.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QSplitter>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>

#include "column_flow.h"
#include "form_groups.h"
#include "qt_text.h"

namespace brindle {
namespace {

// What grows takes the room before the empty end of its row or column does.
constexpr int kBeforeTheEnd = 100;

// ---- Rows ----

bool Expands(const QWidget& widget) { return widget.sizePolicy().horizontalPolicy() == QSizePolicy::Expanding; }

void AddToLine(QBoxLayout& line, const CControlCell& cell, bool with_label) {
    if (with_label && cell.label() != nullptr) line.addWidget(cell.label());
    if (cell.lead() != nullptr) line.addWidget(cell.lead());
    line.addWidget(&cell.widget(), Expands(cell.widget()) ? kBeforeTheEnd : 0);
}

Qt::Alignment LabelAlignment(const QWidget& widget) {
    const int hint = widget.style()->styleHint(QStyle::SH_FormLayoutLabelAlignment, nullptr, &widget);
    return (Qt::Alignment(hint) & Qt::AlignHorizontal_Mask) | Qt::AlignVCenter;
}

// What is in the column of labels; null if the row has none.
QWidget* LabelOf(const FormRow& row) {
    const CControlCell& first = *row.front();
    if (first.label() != nullptr) return first.label();
    const bool is_caption = first.spec().kind == ControlKind::kLabel && row.size() > 1 && first.lead() == nullptr;
    return is_caption ? &first.widget() : nullptr;
}

void AddLine(QGridLayout& grid, const FormRow& row) {
    QWidget* const label = LabelOf(row);
    const int at = grid.rowCount();
    auto* const line = new QHBoxLayout;
    for (const CControlCell* const cell : row) {
        if (&cell->widget() != label) AddToLine(*line, *cell, cell->label() != label);
    }
    line->addStretch(1);
    grid.addLayout(line, at, label == nullptr ? 0 : 1, 1, label == nullptr ? 2 : 1);
    if (label != nullptr) grid.addWidget(label, at, 0, LabelAlignment(*label));
}

// Where a control in the row of a high one goes: units stay with their field.
FormRow& LineFor(const CControlCell& cell, std::vector<FormRow>& lines) {
    if (lines.empty() || cell.spec().kind != ControlKind::kUnits) lines.emplace_back();
    return lines.back();
}

QLayout* Stacked(const std::vector<FormRow>& lines) {
    auto* const grid = new QGridLayout;
    grid->setColumnStretch(1, 1);
    for (const FormRow& line : lines) AddLine(*grid, line);
    auto* const stack = new QVBoxLayout;
    stack->addLayout(grid);
    stack->addStretch(1);
    return stack;
}

// A high control with its label above it.
QVBoxLayout* TallColumn(const CControlCell& cell) {
    auto* const column = new QVBoxLayout;
    column->setContentsMargins(0, 0, 0, 0);
    if (cell.label() != nullptr) column->addWidget(cell.label());
    column->addWidget(&cell.widget(), 1);
    return column;
}

// The user can move the border between them.
QWidget* SideBySide(const FormRow& cells, QWidget& parent) {
    auto* const splitter = new QSplitter(&parent);
    QList<int> shares;
    for (const CControlCell* const cell : cells) {
        auto* const pane = new QWidget(splitter);
        pane->setLayout(TallColumn(*cell));
        splitter->setStretchFactor(splitter->indexOf(pane), 1);
        shares << (cell->spec().kind == ControlKind::kDrawing ? 1500 : 1000);
    }
    splitter->setChildrenCollapsible(false);
    splitter->setSizes(shares);
    return splitter;
}

// High controls go side by side. The others go to the right of those before them, below each other.
QWidget* TallLine(const FormRow& row, QWidget& parent) {
    auto* const pane = new QWidget(&parent);
    auto* const line = new QHBoxLayout(pane);
    line->setContentsMargins(0, 0, 0, 0);
    for (auto cell = row.begin(); cell != row.end();) {
        const auto is_tall = [](const CControlCell* each) { return each->IsTall(); };
        const auto stack = std::find_if_not(cell, row.end(), is_tall);
        const FormRow tall(cell, stack);
        if (tall.size() == 1) line->addLayout(TallColumn(*tall.front()));
        if (tall.size() > 1) line->addWidget(SideBySide(tall, *pane), 1);

        cell = std::find_if(stack, row.end(), is_tall);
        std::vector<FormRow> lines;
        for (auto beside = stack; beside != cell; ++beside) LineFor(**beside, lines).push_back(*beside);
        if (!lines.empty()) line->addLayout(Stacked(lines));
    }
    return pane;
}

bool IsTall(const FormRow& row) {
    return std::any_of(row.begin(), row.end(), [](const CControlCell* cell) { return cell->IsTall(); });
}

// ---- Groups ----

// Makes the boxes of groups.
class CBoxBuilder {
public:
    explicit CBoxBuilder(std::deque<CControlBox>& boxes) : boxes_(boxes) {}

    QWidget* Build(const FormGroup& group, QWidget& parent);

private:
    void AddRow(QVBoxLayout& body, const FormRow& row);
    void AddGroup(QVBoxLayout& body, const FormGroup& group, QWidget& parent);

    std::deque<CControlBox>& boxes_;
    std::vector<CControlBox*> open_;
    QGridLayout* grid_ = nullptr;   // of the rows that follow each other
    QHBoxLayout* strip_ = nullptr;  // of the groups side by side
};

QWidget* CBoxBuilder::Build(const FormGroup& group, QWidget& parent) {
    QWidget* const box = group.heading.empty() ? new QWidget(&parent) : new QGroupBox(ToQt(group.heading), &parent);
    open_.push_back(&boxes_.emplace_back(*box));
    auto* const body = new QVBoxLayout(box);
    if (group.heading.empty()) body->setContentsMargins(0, 0, 0, 0);
    grid_ = nullptr;
    strip_ = nullptr;
    for (const FormPart& part : group.parts) {
        part.group == nullptr ? AddRow(*body, part.row) : AddGroup(*body, *part.group, *box);
    }
    body->addStretch(1);
    open_.pop_back();
    return box;
}

void CBoxBuilder::AddRow(QVBoxLayout& body, const FormRow& row) {
    strip_ = nullptr;
    if (IsTall(row)) {
        QWidget* const pane = TallLine(row, *body.parentWidget());
        body.addWidget(pane);
        grid_ = nullptr;
        CControlBox& box = boxes_.emplace_back(*pane);
        for (CControlCell* const cell : row) box.Add(*cell);
    } else {
        if (grid_ == nullptr) {
            grid_ = new QGridLayout;
            grid_->setColumnStretch(1, 1);
            body.addLayout(grid_);
        }
        AddLine(*grid_, row);
    }
    for (CControlCell* const cell : row) {
        for (CControlBox* const box : open_) box->Add(*cell);
    }
}

void CBoxBuilder::AddGroup(QVBoxLayout& body, const FormGroup& group, QWidget& parent) {
    QHBoxLayout* strip = strip_;
    if (strip == nullptr || !group.starts_column) {
        strip = new QHBoxLayout;
        body.addLayout(strip);
    }
    if (group.IsTall()) body.setStretchFactor(strip, kBeforeTheEnd);
    strip->addWidget(Build(group, parent));
    grid_ = nullptr;
    strip_ = strip;
}

// ---- The page ----

// A part of the page from its left edge to its right.
struct Band {
    BoxColumns columns;
    bool is_tall = false;
    bool is_full = false;  // takes no more boxes below
};

std::vector<Band> BandsOf(const std::vector<std::unique_ptr<FormGroup>>& groups, bool has_columns, QWidget& root,
                          CBoxBuilder& builder) {
    std::vector<Band> bands;
    for (const auto& group : groups) {
        QWidget* const box = builder.Build(*group, root);
        const bool is_head = has_columns && bands.empty() && group->heading.empty();
        const bool takes_all = is_head || group->IsWide();
        if (group->starts_column && !bands.empty()) {
            bands.back().columns.push_back({box});
            bands.back().is_full = false;
        } else if (bands.empty() || bands.back().is_full || takes_all) {
            bands.push_back({{{box}}, false, takes_all});
        } else {
            bands.back().columns.back().push_back(box);
        }
        bands.back().is_tall = bands.back().is_tall || group->IsTall();
    }
    return bands;
}

void AddBand(QVBoxLayout& page, const Band& band, FormFlow flow) {
    auto* const line = new QHBoxLayout;
    for (const std::vector<QWidget*>& boxes : band.columns) {
        auto* const column = new QVBoxLayout;
        for (QWidget* const box : boxes) column->addWidget(box);
        column->addStretch(1);
        line->addLayout(column, flow == FormFlow::kColumns ? 1 : 0);
    }
    page.addLayout(line, band.is_tall ? kBeforeTheEnd : 0);
}

}  // namespace

void LayOutForm(QWidget& root, const std::vector<CControlCell*>& cells, FormFlow flow, std::deque<CControlBox>& boxes) {
    const auto groups = GroupsOf(cells);
    const bool has_columns =
        std::any_of(groups.begin() + 1, groups.end(), [](const auto& group) { return group->starts_column; });
    CBoxBuilder builder(boxes);
    std::vector<Band> bands = BandsOf(groups, has_columns, root, builder);
    auto* page = static_cast<QVBoxLayout*>(root.layout());
    if (page == nullptr) page = new QVBoxLayout(&root);
    if (flow == FormFlow::kOneColumn) page->setContentsMargins(0, 0, 0, 0);  // its window has some
    for (Band& band : bands) {
        if (flow == FormFlow::kColumns && !has_columns) band.columns = InColumns(band.columns.front());
        band.columns = FoldedToPage(band.columns);
        AddBand(*page, band, flow);
    }
    page->addStretch(1);
    for (CControlBox& box : boxes) box.Update();
}

}  // namespace brindle
