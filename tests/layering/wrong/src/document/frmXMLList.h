#pragma once
#include <QWidget>
