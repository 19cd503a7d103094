#pragma once

#include <QString>

/// The text that names the database and how it is opened, with the data source put in as it stands.
QString ConnectionText(const QString& dataSource);

/// The data source that a connection text names; empty when it names none.
QString DataSourceOf(const QString& connectionText);
