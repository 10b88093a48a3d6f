.labels "nl"
