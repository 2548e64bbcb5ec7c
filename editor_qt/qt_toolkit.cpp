#include "qt_toolkit.h"

#include <QFileDialog>
#include <QMenu>
#include <QMessageBox>

#include "dialog_windows.h"
#include "file_filter.h"
#include "sheet_window.h"

namespace brindle {
namespace {

struct Message {
    QMessageBox::Icon icon;
    QMessageBox::StandardButtons buttons;
    QMessageBox::StandardButton on_escape;
};

bool IsAgreed(CDesk& desk, std::string_view text, const Message& message) {
    QWidget* const parent = desk.Asker();
    const QString title = parent == nullptr ? QStringLiteral("Brindle") : parent->windowTitle();
    QMessageBox box(message.icon, title, ToQt(text), message.buttons, parent);
    box.setTextFormat(Qt::PlainText);
    box.setAttribute(Qt::WA_QuitOnClose, false);
    box.setEscapeButton(message.on_escape);
    const int answer = desk.Exec(box);
    return answer == QMessageBox::Ok || answer == QMessageBox::Yes;
}

}  // namespace

std::unique_ptr<CSheetWindow> CQtToolkit::MakeSheet(std::string_view title) {
    return std::make_unique<CQtSheet>(desk_, title);
}

std::unique_ptr<CDialogWindow> CQtToolkit::MakeDialog(std::string_view caption) {
    return std::make_unique<CQtDialog>(desk_, caption);
}

std::unique_ptr<CModelessWindow> CQtToolkit::MakeModeless(std::string_view caption, CSheetWindow& beside) {
    return std::make_unique<CQtModeless>(desk_, caption, static_cast<CQtSheet&>(beside).window());
}

void CQtToolkit::ShowMessage(std::string_view text) {
    IsAgreed(desk_, text, {QMessageBox::Information, QMessageBox::Ok, QMessageBox::Ok});
}

bool CQtToolkit::AskYesNo(std::string_view text) {
    return IsAgreed(desk_, text, {QMessageBox::Question, QMessageBox::Yes | QMessageBox::No, QMessageBox::No});
}

int CQtToolkit::ChooseFromMenu(std::span<const MenuEntry> entries) {
    QMenu menu(desk_.Asker());
    std::vector<const QAction*> actions;
    for (const MenuEntry& entry : entries) {
        QAction* const action = entry.text.empty() ? menu.addSeparator() : menu.addAction(ToQt(entry.text));
        if (!entry.text.empty()) action->setEnabled(entry.enabled);
        actions.push_back(action);
    }
    const QAction* const chosen = menu.exec(desk_.TakeMenuPlace());
    const auto place = std::find(actions.begin(), actions.end(), chosen);
    return place == actions.end() ? -1 : static_cast<int>(place - actions.begin());
}

std::optional<std::string> CQtToolkit::ChooseFile(const FileQuestion& question) {
    QFileDialog dialog(desk_.Asker());
    dialog.setAttribute(Qt::WA_QuitOnClose, false);
    dialog.setAcceptMode(question.save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(question.save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog.setNameFilters(NameFilters(question.filter));
    dialog.setDefaultSuffix(ToQt(question.extension));
    if (!folder_.isEmpty()) dialog.setDirectory(folder_);
    if (desk_.Exec(dialog) != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
    folder_ = dialog.directory().absolutePath();
    return FromQt(dialog.selectedFiles().front());
}

}  // namespace brindle
