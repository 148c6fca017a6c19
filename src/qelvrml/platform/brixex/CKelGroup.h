#pragma once

#include "qelvrml/foundation/VRMLExport.h"
#include "qelvrml/platform/brix/groups/brixWorld.h"

/// A group of a model.
class QELVRML_EXPORT CKelGroup : public brixWorld {};
