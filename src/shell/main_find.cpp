// The attribute choice (frmAttrib) and the list finders of "Find by List" in the desktop
// program: each opens its dialog over its form, and a name chosen from a list is found.
#include "dialogs/find_dialogs.h"
#include "forms/attrib_form.h"
#include "forms/name_lists.h"
#include "shell/main_window.h"

namespace karvane::shell {

void MainWindow::ShowAttribDialog() {
    dialogs::AttribDialog dialog(forms::LoadAttribForm(*model_), this);
    if (dialog.exec() == QDialog::Accepted) forms::ApplyAttribForm(*model_, dialog.Fields());
}

void MainWindow::ShowNameList(bool nodes) {
    dialogs::NameListDialog dialog(forms::ListedNames(*model_, nodes), nodes, this);
    if (dialog.exec() != QDialog::Accepted || dialog.Chosen().empty()) return;
    forms::ChooseListedName(*model_, *ds_, ui_, *this, nodes, dialog.Chosen());
    UpdateMenuTicks();
}

} // namespace karvane::shell
