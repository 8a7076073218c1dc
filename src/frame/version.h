// The library's title and version, for the code and for the version resource.
#pragma once

#define KOVREL_TITLE "kovrel"
#define KOVREL_VERSION_MAJOR 1
#define KOVREL_VERSION_MINOR 0
#define KOVREL_VERSION_REVISION 0
#define KOVREL_VERSION_TEXT "1.0.0"
