#pragma once

// Controls of every kind.
#include "platform/controls/Button.h"
#include "platform/controls/CheckBox.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/DatePicker.h"
#include "platform/controls/Frame.h"
#include "platform/controls/Label.h"
#include "platform/controls/ListBox.h"
#include "platform/controls/Menu.h"
#include "platform/controls/OptionButton.h"
#include "platform/controls/ProgressBar.h"
#include "platform/controls/RichTextBox.h"
#include "platform/controls/TabControl.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/Timer.h"
#include "platform/controls/TreeView.h"
#include "platform/controls/control_array.h"
