#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/desk/Outcome.h"
#include "host/desk/rows/ScheduleKind.h"
#include "host/desk/work/template_texts.h"

namespace autonotify::host {

// The templates of the kinds of tasks. Kinds are named as requireScheduleKind takes them.

struct KindTemplate {
  ScheduleKind kind;
  /// The standard one where the kind has none of its own.
  std::string text = {};
  bool isStandard = false;
  /// Why it cannot be read; empty when it can.
  std::string errors = {};
};

ReadableRows<KindTemplate> listKindTemplates(Desk& desk);
Outcome<KindTemplate> readKindTemplate(Desk& desk, const std::string& kind);
/// The template that the task's notifications are composed by; empty without any.
Outcome<std::string> readTaskTemplate(Desk& desk, Id task);

struct TemplateWish {
  /// As templateOf gives it; unset: the standard template.
  std::optional<std::string> text;
  /// The template that the person has seen: any other one stays.
  std::optional<std::string> former = std::nullopt;
  /// Takes a text with faults too, and the place of one that cannot be read.
  bool anyway = false;
};

enum class TemplateFate { written, alreadyThere, faulty, changedMeanwhile };

struct TemplateChange {
  ScheduleKind kind;
  TemplateFate fate = TemplateFate::written;
  /// Those of a faulty text.
  std::vector<TemplateFault> faults;
  /// What the kind had before, as it was stored.
  std::string former;
};

/// Gives the kind a template, in one write, while no other desk changes any. Refused also for a
/// text that is too large to be kept.
Outcome<TemplateChange> changeKindTemplate(Desk& desk, const std::string& kind,
                                           const TemplateWish& wish);

/// Whether people see no difference between two rich texts.
bool looksAlike(const std::string& one, const std::string& other);

}  // namespace autonotify::host
