#pragma once

#include "qelvrml/platform/brix/groups/brixBaseGroup.h"

/// A group that may stand at the root of a model.
class QELVRML_EXPORT brixWorld : public brixBaseGroup {};
