#pragma once

#include <string>

#include "merge/templates/template_rewrites.h"

namespace autonotify {

/// The template without block headers; a text of at most longestFieldName characters gets the
/// marks that it lacks.
std::string verifyTemplateText(const std::string& text);

/// The region of the installation, as far as its locale tells it.
Region regionOfInstallation();

/// The template with the region's names of today for the fields of older templates and of other
/// regions.
std::string updateTemplate(const std::string& text, const Region& region);

/// The same for the installation's own region, as one procedure.
std::string convertProvinceFields(const std::string& text);

}  // namespace autonotify
