// The style sheet in the head of every HTML list. Keep it as it is: the invalid margin of the body and the
// unused class are part of the expected page.
#pragma once

inline constexpr wchar_t StyleSheet[] =
    LR"css(	<style type="text/css">
		body
		{
			margin: 16px; 16px; 16px; 16px;
			font-size: 11px;
			font-style: normal;
			font-variant: normal;
			font-family: Verdana, sans-serif;
			color: #FFFFFF;
			background-color: #003366;
		}

		table
		{
			font-size: 11px;
			font-style: normal;
			font-variant: normal;
			font-family: Verdana, sans-serif;
			margin-top: 4px;
			border-style: none;
			border-width: 2px;
			border-spacing: 2px;
			white-space: nowrap;
		}

		table.folders
		{
			font-weight: normal;
		}

		table.files
		{
			font-style: normal;
		}

		th
		{
			text-align: left;
			padding-top: 4px;
			padding-left: 8px;
			padding-right: 8px;
			padding-bottom: 4px;
			background-color: #004477;
		}

		td
		{
			text-align: left;
			padding-top: 4px;
			padding-left: 8px;
			padding-right: 8px;
			padding-bottom: 4px;
		}

		.td-right
		{
			text-align: right
		}

		.header
		{
			font-size: 18px;
			font-weight: bold;
		}

		.summary
		{
			font-size: 12px;
			font-style: normal;
		}
	</style>)css";
