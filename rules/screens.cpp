#include "rules/screens.h"

screen_flags screens;
