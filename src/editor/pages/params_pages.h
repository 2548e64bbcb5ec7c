// The pages of the tuning editor, in the order of their tabs.
#pragma once

#include "editor/pages/params_arcs.h"
#include "editor/pages/params_data.h"
#include "editor/pages/params_general.h"
#include "editor/pages/params_page.h"
#include "editor/pages/params_rtd.h"
#include "editor/pages/params_speed.h"
#include "editor/pages/params_subs.h"
#include "editor/pages/params_templates.h"
#include "editor/pages/params_text.h"
#include "editor/pages/params_tool_data.h"
#include "editor/pages/params_tool_rot.h"
#include "editor/pages/params_unit_codes.h"
