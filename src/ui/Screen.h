// The way of the add-on's logic to a person: message boxes and modal dialogs.
#pragma once

#include <cstdint>
#include <string>

namespace pactora::ui {

class Form;

// Flags of a message box, added together.
namespace style {
inline constexpr std::int32_t kOkOnly = 0;
inline constexpr std::int32_t kYesNo = 4;
inline constexpr std::int32_t kQuestion = 32;
inline constexpr std::int32_t kExclamation = 48;
inline constexpr std::int32_t kInformation = 64;
inline constexpr std::int32_t kDefaultButton2 = 256;
}  // namespace style

enum class Answer { Ok, Yes, No };

// The button that the return key presses, and whether a box of these flags has
// a button of that answer.
Answer DefaultAnswer(std::int32_t flags);
bool Offers(std::int32_t flags, Answer answer);

// The title of a message that names none.
inline constexpr char kDefaultTitle[] = "Pactora";

struct Message {
  std::string text;  // line breaks are CR LF
  std::int32_t style = style::kOkOnly;
  std::string title = kDefaultTitle;
};

class Screen {
 public:
  virtual ~Screen() = default;
  // Shows a box and returns when it is closed. Ok is the answer of a box with
  // an OK button alone.
  virtual Answer ShowMessage(const Message& message) = 0;
  // Shows the dialog and returns when it was hidden. Calls nest.
  virtual void ShowModal(Form& form) = 0;
  // Gives the host one pass of its message processing.
  virtual void ProcessPendingMessages() = 0;
};

}  // namespace pactora::ui
