#pragma once

#include "contract/MsgboxClass.h"

namespace autonotify::desktop {

/// Messages and questions in boxes whose icon follows the style.
class DialogMsgbox : public MsgboxClass {
 public:
  void showMessage(const std::string& text, int style, HostObject* owner, int reserved1,
                   int reserved2, int reserved3, int reserved4, const std::string& reserved5,
                   int reserved6) override;
  int askQuestion(const std::string& text, int style, HostObject* owner, int reserved1,
                  int reserved2, int reserved3, int reserved4, const std::string& reserved5,
                  int reserved6) override;
};

}  // namespace autonotify::desktop
