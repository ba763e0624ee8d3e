#include "document/frmXMLList.h"
#include "document/list.h"
