#include "platform/dao/database.h"
