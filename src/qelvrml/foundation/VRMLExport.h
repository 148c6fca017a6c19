#pragma once

/// Marks what the shared library offers to its hosts; everything else stays hidden.
#define QELVRML_EXPORT [[gnu::visibility("default")]]
