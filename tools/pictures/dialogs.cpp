#include "pictures/dialogs.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTreeView>

#include "host/HostTable.h"
#include "pictures/WindowSteps.h"
#include "schema/names.h"

namespace pactora::desktop {
namespace {

// The widget of a control; raises for a name that the window does not have.
template <typename T>
T& In(QWidget& window, const char* name) {
  T* widget = window.findChild<T*>(QString::fromUtf8(name));
  if (!widget) throw std::invalid_argument(std::string("no control ") + name);
  return *widget;
}

void Type(QWidget& box, const char* text) {
  for (const QChar character : QString::fromUtf8(text)) {
    QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, character);
    QApplication::sendEvent(&box, &press);
  }
}

void Retype(QWidget& window, const char* name, const char* text) {
  auto& line = In<QLineEdit>(window, name);
  line.setFocus();
  line.selectAll();
  Type(line, text);
}

void AddNewContract(WindowSteps& steps, Pictures& pictures) {
  steps.Add("frmNewContract", [&](QWidget& window) {
    auto& types = In<QTreeView>(window, "lvwBezeichnung");
    types.setCurrentIndex(types.model()->index(types.model()->rowCount() - 1, 0));
    Retype(window, "DTPVertragBeginn_edit", "1.1.23");
    Retype(window, "txtRabatt", "12.5");
    In<QAbstractButton>(window, "chkOldContract").click();
    pictures.Take(window, "new-contract");
    dynamic_cast<QDialog&>(window).reject();
  });
  steps.Add("message", [&](QWidget& window) {
    pictures.Take(window, "unsaved");
    window.findChildren<QAbstractButton*>().constLast()->click();
  });
}

void AddDefinition(WindowSteps& steps, Pictures& pictures) {
  steps.Add("frmFEditDefinitions", [&](QWidget& window) {
    pictures.Take(window, "contract-type");
    In<QAbstractButton>(window, "cmdDeletePos").click();
  });
  steps.Add("message", [&](QWidget& window) {
    pictures.Take(window, "message");
    dynamic_cast<QDialog&>(window).reject();
  });
  steps.Add("frmFEditDefinitions",
            [](QWidget& window) { In<QAbstractButton>(window, "cmdEditPos").click(); });
  steps.Add("frmFEditDefPositions", [&](QWidget& window) {
    pictures.Take(window, "position");
    dynamic_cast<QDialog&>(window).reject();
  });
  steps.Add("frmFEditDefinitions",
            [](QWidget& window) { dynamic_cast<QDialog&>(window).reject(); });
}

// Leaves the contract types on the first one that renews and has positions.
void GoToTypeWithPositions(workspace::Session& session) {
  const auto types = session.Host().Table(schema::table::vv_Vertragsdefinitionen);
  const auto positions = session.Host().Table(schema::table::vv_Definitionspositionen);
  types->LinkChildren();
  for (types->MoveFirst(host::kFlagsUsual); !types->Eof(); types->MoveNext(1, host::kFlagsUsual)) {
    positions->MoveFirst(host::kFlagsUsual);
    const bool renews = host::ToLong(types->Fields().Item(schema::field::Art).Value()) == 1;
    if (renews && !positions->Eof()) return;
  }
}

}  // namespace

void MakeDialogPictures(workspace::Session& session, Pictures& pictures) {
  WindowSteps steps;

  session.Host().Table(schema::table::Adressen)->MoveFirst(host::kFlagsUsual);
  bool saved = false;
  bool show_details = false;
  std::int32_t status_rows = 0;
  AddNewContract(steps, pictures);
  steps.Run([&] { session.Entry().NewContract(session.App(), saved, status_rows, show_details); });

  GoToTypeWithPositions(session);
  AddDefinition(steps, pictures);
  steps.Run([&] { session.Entry().EditContractDefinition(session.App(), false); });
  pictures.Problems() += steps.Problems();
}

}  // namespace pactora::desktop
