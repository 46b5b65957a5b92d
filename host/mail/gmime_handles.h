#pragma once

#include <gmime/gmime.h>

#include <memory>

namespace autonotify::host {

struct GObjectRelease {
  void operator()(gpointer object) const { g_object_unref(object); }
};
struct GFree {
  void operator()(gpointer memory) const { g_free(memory); }
};
struct DateTimeRelease {
  void operator()(GDateTime* moment) const { g_date_time_unref(moment); }
};
struct FormatOptionsRelease {
  void operator()(GMimeFormatOptions* options) const { g_mime_format_options_free(options); }
};

template <class Object>
using GHandle = std::unique_ptr<Object, GObjectRelease>;
using GText = std::unique_ptr<char, GFree>;
using DateTimeHandle = std::unique_ptr<GDateTime, DateTimeRelease>;
using FormatOptionsHandle = std::unique_ptr<GMimeFormatOptions, FormatOptionsRelease>;

/// Makes the mail library ready, once a process.
inline void initMail() {
  static const bool done = (g_mime_init(), true);
  static_cast<void>(done);
}

}  // namespace autonotify::host
