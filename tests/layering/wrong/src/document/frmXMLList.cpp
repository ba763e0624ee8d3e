#include "document/frmXMLList.h"
#include "document/list.h"
#include <QString>
#include <windows.h>
