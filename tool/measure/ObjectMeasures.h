#pragma once

#include "measure/Measures.h"
#include "measure/surfaces/OpenSheets.h"

/// Measures an object by itself. What isn't closed of it goes to `sheets`, at `open`, and isn't counted yet.
Measures MeasureObject(const brixBaseObject& object, const Resolution& resolution, OpenSheets& sheets,
                       OpenSheets::Range& open);
