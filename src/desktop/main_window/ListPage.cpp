#include "desktop/main_window/ListPage.h"

#include <QAction>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLocale>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "desktop/text.h"

namespace pactora::desktop {

ListPage::ListPage(OpenDatabase& database, const ListKind& kind, const QString& name,
                   const QString& search, QWidget* parent)
    : Page(parent),
      database_(database),
      kind_(kind),
      model_(kind.columns),
      loader_(model_),
      table_(model_, name) {
  setObjectName(name + QStringLiteral("_page"));
  search_.setObjectName(name + QStringLiteral("_search"));
  search_.setPlaceholderText(search);
  search_.setAccessibleName(search);
  search_.setClearButtonEnabled(true);
  search_.installEventFilter(this);
  connect(&search_, &QLineEdit::textChanged, this, [this](const QString& text) {
    model_.SetWords(text);
    ShowCount();
  });
  table_.setAccessibleName(ToQt(kind.list.title));
  table_.setSortingEnabled(true);
  table_.sortByColumn(kind.sorted_by, Qt::AscendingOrder);
  count_.setObjectName(name + QStringLiteral("_count"));
  loader_.Progress = [this] {
    ShowCount();
    // The chosen row is there again, or has gone.
    if (ChoiceChanged) ChoiceChanged();
  };
  loader_.Failed = [this](const platform::Error& error) { database_.ShowError(error); };

  tools_ = new QHBoxLayout;
  tools_->addWidget(&search_, 1);
  auto* all = new QVBoxLayout(this);
  all->addLayout(tools_);
  all->addWidget(&table_, 1);
  all->addWidget(&count_);
}

void ListPage::Reload() { loader_.Start(ReadList(database_, kind_)); }

std::unordered_set<std::int64_t> ListPage::ShownKeys() {
  Finish();
  std::unordered_set<std::int64_t> keys;
  for (int row = 0; row < model_.rowCount(); ++row) keys.insert(model_.Row(row).key);
  return keys;
}

void ListPage::Reveal(std::int64_t key) {
  if (model_.Find(key) < 0) search_.clear();
  table_.ShowChoice(key);
}

void ListPage::Search() {
  search_.setFocus(Qt::ShortcutFocusReason);
  search_.selectAll();
}

void ListPage::AddTool(QAction& action) {
  auto* button = new QPushButton(action.iconText());
  const QString keys = action.shortcut().toString(QKeySequence::NativeText);
  button->setToolTip(keys.isEmpty() ? action.toolTip()
                                    : QStringLiteral("%1 (%2)").arg(action.toolTip(), keys));
  button->setEnabled(action.isEnabled());
  connect(button, &QPushButton::clicked, &action, &QAction::trigger);
  connect(&action, &QAction::changed, button,
          [button, &action] { button->setEnabled(action.isEnabled()); });
  AddTool(*button);
}

QAction* ListPage::ShowingContract(std::function<store::Oid(const ListRow& row)> of) {
  auto* action = new QAction(QStringLiteral("Vertrag &zeigen"), this);
  connect(action, &QAction::triggered, this, [this, of = std::move(of)] {
    const ListRow* row = table_.Current();
    if (const store::Oid contract = row ? of(*row) : 0; contract != 0) ContractAsked(contract);
  });
  return action;
}

void ListPage::SetCondition(std::function<bool(const ListRow& row)> condition) {
  model_.SetCondition(std::move(condition));
  ShowCount();
}

void ListPage::ShowCount() {
  const QString all = QLocale().toString(static_cast<qulonglong>(model_.All()));
  const QString shown = QLocale().toString(model_.rowCount());
  const bool whole = static_cast<std::size_t>(model_.rowCount()) == model_.All();
  QString text = ToQt(kind_.list.title) + QStringLiteral(": ") +
                 (whole ? all : QStringLiteral("%1 von %2").arg(shown, all));
  if (loader_.Running()) text += QStringLiteral(" … wird gelesen");
  count_.setText(text);
}

bool ListPage::eventFilter(QObject* watched, QEvent* event) {
  // From the line straight into the list.
  if (watched == &search_ && event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Down || key == Qt::Key_Return || key == Qt::Key_Enter) {
      table_.Enter();
      return true;
    }
    if (key == Qt::Key_Escape && !search_.text().isEmpty()) {
      search_.clear();
      return true;
    }
  }
  return Page::eventFilter(watched, event);
}

}  // namespace pactora::desktop
