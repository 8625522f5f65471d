#include "shell/app.h"

app_record app;
