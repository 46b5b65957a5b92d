#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "contract/enumerations.h"
#include "platform/Value.h"

namespace autonotify {

/// Why a composer was opened.
enum class ComposerMode : int {
  none = 0,       ///< not opened yet
  notifyNow = 1,  ///< sends at once; the row is deleted when the window is unloaded
  editAuto = 2,   ///< edits a row that is armed already
  newAuto = 3,    ///< arms a new row; a Cancel deletes it
  sendAuto = 4,   ///< sends an armed row; the caller marks it sent
  blankSend = 5,  ///< sends a row that no item stands behind; deleted when unloaded
};

/// The kind of a diary item: a CurrentDayTimerType, or whatever number the caller has.
using ItemKind = std::int32_t;

/// What a composer is opened for.
struct ComposerPurpose {
  ComposerMode mode = ComposerMode::none;
  notificationTypes type = remittanceNotification;
  ItemKind kind = Appointments;
};

/// When an initializer that gets no row adds one by itself: one of an email, whatever the channel,
/// as hosts know it.
enum class AddsRow {
  never,
  always,
  unlessNewWithoutSchedule,  ///< not in the mode newAuto with a schedule id below 0
};

/// The texts of a composer's fields in the order of the columns "Field1" and on.
using FieldTexts = std::vector<std::string>;

/// A procedure of a window that hosts know under another tag than the window's name and its own.
struct OtherTag {
  const char* procedure;
  /// Stands behind the start that all tags have.
  const char* tag;
};

/// What one channel's composer differs in from the others.
struct ComposerChannel {
  notifyType channel;
  const char* formName;
  const char* caption;
  const char* addressCaption;
  AddsRow addsRow;
  /// The confirmation, around the word for the item; the date follows.
  const char* confirmationStart;
  const char* confirmationEnd;
  /// True: a client is one that the client list knows, and a contact's address is never taken out.
  /// False: a client is any id of 1 or more, and a contact's address is taken out as well.
  bool asksClientList;
  /// True when the heading with the address begins with the date.
  bool addressHasDate;
  /// Stores the texts that are not empty in the row of a schedule entry's notification.
  void (*editForSchedule)(Id notifyID, const FieldTexts& fields, const std::string& memo);
  /// The same as editForSchedule for the row of a diary item's notification.
  void (*editForItem)(ItemKind kind, Id notifyID, const FieldTexts& fields,
                      const std::string& memo);
  /// The captions of cmdFinish and cmdCancel when the window is about a send at once; null: the
  /// ordinary ones.
  const char* finishAtOnce = nullptr;
  const char* cancelAtOnce = nullptr;
  /// True: the text is read from the row before the client, not behind the fields.
  bool readsTextFirst = false;
  std::span<const OtherTag> otherTags = {};
};

}  // namespace autonotify
