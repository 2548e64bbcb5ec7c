// The pages of the tuning editor, in the order of their tabs.
#pragma once

#include "editor/params_arcs.h"
#include "editor/params_data.h"
#include "editor/params_general.h"
#include "editor/params_page.h"
#include "editor/params_rtd.h"
#include "editor/params_speed.h"
#include "editor/params_subs.h"
#include "editor/params_templates.h"
#include "editor/params_text.h"
#include "editor/params_tool_data.h"
#include "editor/params_tool_rot.h"
#include "editor/params_unit_codes.h"
