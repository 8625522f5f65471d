#include "rules/screens.h"

screen_flags screens;
app_record app;
