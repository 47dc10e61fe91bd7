other beam "C:\a b\@model@" 100% it's
