// Where the windows of a dialog stand: its body, which is scrolled where the screen is too
// small for it, and the strip below it.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "dialogs/Layout.h"
#include "dialogs/arrangement.h"
#include "win32/Metrics.h"
#include "win32/binding/Binder.h"

namespace pactora::win32 {

class Placing final : public dialogs::Measures {
 public:
  // Null for a control that the dialog does not have.
  using FindBinder = std::function<Binder*(const std::string& control)>;

  Placing(dialogs::Layout layout, const Metrics& metrics, FindBinder find);

  const dialogs::Layout& Layout() const { return layout_; }
  bool InFooter(const std::string& control) const;
  Look LookOf(const std::string& control) const;

  // The smallest size that shows the whole dialog.
  SIZE Whole() const;
  // Of the strip; 0 without one.
  std::int32_t FooterHeight() const;
  // Places everything: the body in its view, whose client area gets scroll bars as it needs
  // them, the strip below it.
  void Place(HWND dialog, HWND view);
  // Scrolls the view by so many pixels.
  void Scroll(HWND view, bool across, std::int32_t pixels) const;
  // Scrolls until all of the window is to be seen.
  void ShowAllOf(HWND window, HWND view) const;

  dialogs::Wish WishOf(const std::string& control) const override;
  ui::Rectangle BorderOf(const std::string& frame) const override;
  bool TakesPlace(const std::string& control) const override;
  std::int32_t Scaled(std::int32_t pixels) const override { return metrics_.Scaled(pixels); }

 private:
  SIZE Body() const;
  void MeasureGroups();
  void PlaceAll(const dialogs::Places& places, LONG left, LONG top) const;

  const dialogs::Layout layout_;
  const dialogs::Item footer_;
  const Metrics& metrics_;
  const FindBinder find_;
  std::map<std::string, std::int32_t> narrowest_;  // of those that are as wide as others
};

}  // namespace pactora::win32
