#include "document/list.h"
#include "document/frmXMLList.h"
#include "preview/picture.h"
#include <QString>
