#include "desktop/main_window/cells.h"

#include <QLocale>

#include "desktop/text.h"
#include "platform/Date.h"

namespace pactora::desktop {
namespace {

constexpr int kCents = 2;  // decimals

QString DateText(platform::Date date) {
  if (date == platform::kNoDate) return {};
  if (date == platform::kNoInvoiceDate) return QStringLiteral("keine");
  return ToQt(platform::FormatDate(date, platform::kGermanPattern));
}

QString NumberText(double number, int decimals) {
  return QLocale().toString(number, 'f', decimals);
}

}  // namespace

QString CellText(CellKind kind, const host::Value& value) {
  if (value.IsEmpty()) return {};
  switch (kind) {
    case CellKind::Text:
      return ToQt(host::ToText(value));
    case CellKind::Number: {
      const double number = host::ToDouble(value);
      return NumberText(number, number == static_cast<double>(qRound64(number)) ? 0 : kCents);
    }
    case CellKind::Money:
      return NumberText(host::ToDouble(value), kCents);
    case CellKind::Percent:
      return host::ToDouble(value) == 0
                 ? QString()
                 : NumberText(host::ToDouble(value), kCents) + QStringLiteral(" %");
    case CellKind::Date:
      return DateText(host::ToDate(value));
    case CellKind::Mark:
      return host::ToBoolean(value) ? QStringLiteral("ja") : QString();
  }
  return {};
}

Qt::Alignment CellAlignment(CellKind kind) {
  const bool number =
      kind == CellKind::Number || kind == CellKind::Money || kind == CellKind::Percent;
  return Qt::AlignVCenter | (number ? Qt::AlignRight : Qt::AlignLeft);
}

bool SortsByText(CellKind kind) { return kind == CellKind::Text; }

double SortNumber(const host::Value& value) {
  switch (value.GetKind()) {
    case host::Kind::Empty:
      return 0;
    case host::Kind::Date:
      return value.AsDate().days;
    case host::Kind::Boolean:
      return value.AsBoolean() ? 1 : 0;
    default:
      return host::ToDouble(value);
  }
}

}  // namespace pactora::desktop
