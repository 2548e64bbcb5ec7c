// `brindle-screenshots FOLDER`: opens the windows of the editor over the examples, in whose folder it runs, and writes
// pictures of them.
#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QImage>
#include <QListView>
#include <QMouseEvent>
#include <QPushButton>
#include <QStyle>
#include <QStyleFactory>
#include <QTabWidget>
#include <QTableView>
#include <QTimer>
#include <deque>
#include <functional>
#include <iostream>
#include <stdexcept>

#include "brindle/brindle.h"
#include "platform/text_encoding.h"
#include "platform/text_file.h"

namespace {

// ---- What is on the screen ----

QWidget& Top() {
    QWidget* const window = QApplication::activeModalWidget();
    if (window == nullptr) throw std::runtime_error("no window is open");
    return *window;
}

QWidget& WindowOf(const QString& caption) {
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && window->windowTitle() == caption) return *window;
    }
    throw std::runtime_error("no window " + caption.toStdString());
}

// The first such control in view.
template <typename Widget>
Widget& First(QWidget& window = Top()) {
    for (Widget* const widget : window.findChildren<Widget*>()) {
        if (widget->isVisible()) return *widget;
    }
    throw std::runtime_error("no such control in " + window.windowTitle().toStdString());
}

void ClickButton(const QString& text) {
    for (QAbstractButton* const button : Top().findChildren<QAbstractButton*>()) {
        if (button->isVisible() && button->text() == text) return button->click();
    }
    throw std::runtime_error("no button " + text.toStdString());
}

void GoToPage(const QString& caption) {
    auto& tabs = First<QTabWidget>();
    for (int page = 0; page < tabs.count(); ++page) {
        if (tabs.tabText(page) == caption) tabs.setCurrentIndex(page);
    }
}

void DoubleClickRow(int row) {
    auto& table = First<QTableView>();
    const QPointF place = table.visualRect(table.model()->index(row, 2)).center();
    QMouseEvent click(QEvent::MouseButtonDblClick, place, table.viewport()->mapToGlobal(place), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(table.viewport(), &click);
}

// ---- The photographer ----

// Does one act after the other while the windows that these open wait for their user.
class CPhotographer {
public:
    explicit CPhotographer(const QString& folder) : folder_(folder) {}

    void Then(std::function<void()> act) { acts_.push_back(std::move(act)); }
    void Shoot(const QString& name) {
        Then([this, name] { Write(name, Top()); });
    }
    void ShootWindow(const QString& caption, const QString& name) {
        Then([this, caption, name] { Write(name, WindowOf(caption)); });
    }
    void Click(const QString& button) {
        Then([button] { ClickButton(button); });
    }
    void Page(const QString& caption) {
        Then([caption] { GoToPage(caption); });
    }
    void Leave() {
        Then([] { dynamic_cast<QDialog&>(Top()).reject(); });
    }

    // Runs `open`, which returns when the acts have closed its windows.
    void Run(const std::function<void()>& open) {
        Begin();
        open();
        if (!acts_.empty()) throw std::runtime_error("a window has closed before its time");
    }

private:
    // An act begins when nothing else is to be done for a while, so that windows have settled.
    void Begin() {
        constexpr int kPause = 80;  // milliseconds
        QTimer::singleShot(kPause, [this] { Next(); });
    }
    void Next() {
        if (acts_.empty()) return;
        const std::function<void()> act = std::move(acts_.front());
        acts_.pop_front();
        if (!acts_.empty()) Begin();
        try {
            act();
        } catch (const std::runtime_error& fault) {
            std::cerr << "brindle-screenshots: " << fault.what() << '\n';
            std::exit(1);
        }
    }
    void Write(const QString& name, QWidget& window) const {
        const QImage picture = window.grab().toImage().convertToFormat(QImage::Format_RGB888);
        picture.save(folder_.filePath(name + ".png"), nullptr, 0);
    }

    QDir folder_;
    std::deque<std::function<void()>> acts_;
};

// ---- Sessions ----

void Load(const std::string& tuning, const std::string& drawing) {
    GBrn_Clear();
    GBrn_ClearTuning();
    const auto text = brindle::ReadWholeFile(tuning + '/' + tuning + ".tun");
    if (!text) throw std::runtime_error("no tuning " + tuning);
    for (const std::string_view line : brindle::SplitLines(*text)) {
        GBrn_ReadTuneLine(brindle::NarrowToWide(line).c_str());
    }
    GBrn_OpenCF2File(brindle::NarrowToWide("drawings/" + drawing + ".cf2").c_str());
}

void OpenSheet(bool inches) {
    int result = 0;
    GBrn_DisplayTuningDialog(inches ? 1 : 0, L"", &result);
}

void ShootPages(CPhotographer& photographer, const QStringList& pages, const QString& suffix, bool inches) {
    for (const QString& page : pages) {
        photographer.Page(page);
        photographer.Shoot("page_" + page.toLower() + suffix);
    }
    photographer.Leave();
    photographer.Run([inches] { OpenSheet(inches); });
}

void ShootTemplates(CPhotographer& photographer, const QString& suffix) {
    photographer.Page("Templates");
    photographer.Click("Preview...");
    photographer.Then([] {
        auto& list = First<QListView>(WindowOf("NC Code Preview"));
        list.setCurrentIndex(list.model()->index(13, 0));
    });
    photographer.ShootWindow("NC Code Preview", "preview" + suffix);
    photographer.Then([] { DoubleClickRow(2); });
    photographer.Shoot("template_editor" + suffix);
    photographer.Click("Insert @Directive...");
    photographer.Shoot("directive_chooser" + suffix);
    photographer.Leave();
    photographer.Leave();
    photographer.Leave();
    photographer.Run([] { OpenSheet(false); });
}

void ShootRunTimeData(CPhotographer& photographer) {
    photographer.Page("RunTimeData");
    photographer.Click("Edit &RTD Definition...");
    photographer.Click("&Yes");
    photographer.Shoot("run_time_definition");
    photographer.Leave();
    photographer.Page("General");
    photographer.Click("...");
    photographer.Shoot("run_time_chooser");
    photographer.Leave();
    photographer.Leave();
    photographer.Run([] { OpenSheet(false); });
    photographer.Shoot("run_time_data");
    photographer.Leave();
    photographer.Run([] {
        wchar_t* chosen = nullptr;
        GBrn_DisplayRTDataDlg(L"", L"Birch_18", L"pick", &chosen);
        SysFreeString(chosen);
    });
}

void ShootSegments(CPhotographer& photographer) {
    GBrn_ReadTuneLine(L"BOOL bUseFileSeg true");
    GBrn_ReadTuneLine(L"INT nMaxBytes 200");
    GBrn_End();
    photographer.Shoot("load_segment");
    photographer.Leave();
    photographer.Run([] { GBrn_DisplayLoadSegmentDialog(); });
}

void UsePalette(bool dark) {
    QPalette palette = QApplication::style()->standardPalette();
    if (dark) {
        palette = QPalette(QColor(0x35, 0x38, 0x3c), QColor(0x2b, 0x2d, 0x30));
        palette.setColor(QPalette::Base, QColor(0x1e, 0x20, 0x22));
        palette.setColor(QPalette::AlternateBase, QColor(0x26, 0x28, 0x2b));
        palette.setColor(QPalette::Highlight, QColor(0x2f, 0x65, 0xa8));
    }
    QApplication::setPalette(palette);
}

// Every page of a tuning that uses it.
void ShootEveryPage(CPhotographer& photographer, const QString& suffix, bool inches) {
    Load("laser_mm", "folding_box");
    ShootPages(photographer, {"General", "Codes", "AxisData", "ArcData", "Speed", "Tools", "Templates"}, suffix,
               inches);
    Load("subs_mirror", "nested_sheet");
    ShootPages(photographer, {"Subs"}, suffix, inches);
    Load("knife_tangential", "knife_sheet");
    ShootPages(photographer, {"ToolRot"}, suffix, inches);
    Load("engraver_text", "engraving");
    ShootPages(photographer, {"Text"}, suffix, inches);
    Load("speed_by_material", "plate");
    ShootPages(photographer, {"RunTimeData"}, suffix, inches);
}

void ShootAll(CPhotographer& photographer) {
    ShootEveryPage(photographer, "", false);
    Load("speed_by_material", "plate");
    ShootRunTimeData(photographer);
    Load("laser_mm", "folding_box");
    ShootTemplates(photographer, "");
    ShootSegments(photographer);
    UsePalette(true);
    ShootEveryPage(photographer, "_dark_inch", true);
    Load("laser_mm", "folding_box");
    ShootTemplates(photographer, "_dark");
}

}  // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    if (argc != 2) {
        std::cerr << "Usage: brindle-screenshots FOLDER\n";
        return 2;
    }
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    QApplication::setFont(QFont("DejaVu Sans", 9));
    UsePalette(false);
    CPhotographer photographer(QString::fromLocal8Bit(argv[1]));
    ShootAll(photographer);
    return 0;
}
